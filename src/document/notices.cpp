#include "document/notices.h"

#include "base/RuntimeError.h"
#include "base/text.h"
#include "model/differences.h"
#include "model/issues.h"
#include "model/ownership.h"

#include <algorithm>

namespace varnow {

namespace {

const QString undoCaption = QStringLiteral("Undo");

Remedy undoLast()
{
    return {Remedy::Kind::Undo, undoCaption, QStringLiteral("Takes back what was done last.")};
}

QString placeOf(const Field &field)
{
    return QStringLiteral("%1.%2").arg(field.messageIndex).arg(field.position);
}

QString lineOf(const Field &field)
{
    return shownName(field.line, field.lineIndex);
}

/// "message index 3 → 5, position 1 → 2"
template <class Record> QString changesOf(const Record &before, const Record &now)
{
    return differences(before, now, Captions::InSentence).join(QStringLiteral(", "));
}

/// What "added" and "changed" are for a field in a sentence.
QString storedText(const Change<Field> &change)
{
    const QString name = "Field " + shownName(*change.is);
    if (!change.was)
        return name + " added";
    return lineKeyOf(*change.was) == lineKeyOf(*change.is)
               ? name + " changed"
               : name + " moved from " + lineOf(*change.was) + " to " + lineOf(*change.is);
}

DocumentNotice noticeForLine(const Change<Line> &change, const Model &model)
{
    const Line &line = *change.is;
    const QString name = shownName(line);
    if (!change.was)
        return {"Line " + name + QStringLiteral(" added with message index %1.").arg(line.messageIndex)};
    const int oldIndex = change.was->messageIndex;
    const QString sentence = "Line " + name + " changed: " + changesOf(*change.was, line) + '.';
    const auto stays = [&](const Field &field) {
        return field.messageIndex == oldIndex && belongsTo(field, line);
    };
    const auto ofConfiguration = model.fields.ofConfiguration(line.configuration);
    const auto fields = static_cast<int>(std::ranges::count_if(ofConfiguration, stays));
    if (fields == 0 || oldIndex == line.messageIndex)
        return {sentence};
    const QString rest = (fields == 1 ? QStringLiteral(" Its field keeps")
                                      : QStringLiteral(" Its %1 fields keep").arg(fields)) +
                         QStringLiteral(" message index %1.").arg(oldIndex);
    return {sentence + rest,
            {{Remedy::Kind::MoveFields, QStringLiteral("Move its fields"),
              QStringLiteral("Gives its fields the new message index too."), keyOf(line)}}};
}

/// The field, other than this one, that stands at its place; null without one.
const Field *fieldInTheWayOf(const Field &field, const Model &model)
{
    for (const Field &other : model.fields.ofConfiguration(field.configuration)) {
        if (other.position == field.position && other.messageIndex == field.messageIndex &&
            keyOf(other) != keyOf(field))
            return &other;
    }
    return nullptr;
}

Remedy moveBehindLastOfLine(Field field, const Model &model)
{
    field.position = model.fields.nextPosition(field.configuration, field.line, field.lineIndex);
    return {Remedy::Kind::StoreField,
            "Move to " + placeOf(field),
            QStringLiteral("Gives the field the position behind the last one of its line."),
            {},
            field};
}

Remedy addInstead(Field field, const Model &model)
{
    while (model.fields.find(field.configuration, field.name, field.nameIndex) >= 0)
        ++field.nameIndex;
    return {Remedy::Kind::AddInstead,
            "Add as " + nameOf(field.name, field.nameIndex) + " instead",
            QStringLiteral("Leaves the field as it was and adds the new one under an index of its own."),
            {},
            field};
}

DocumentNotice noticeForField(const Change<Field> &change, const Model &model)
{
    const Field &field = *change.is;
    const bool leavesRow = change.was && change.was->id > 0 && !sameKey(*change.was, field);
    const bool isChange = change.was && sameKey(*change.was, field);
    const bool hasLine = model.lines.find(field.configuration, field.line, field.lineIndex) >= 0;
    const Field *other = hasLine ? fieldInTheWayOf(field, model) : nullptr;
    DocumentNotice notice{storedText(change)};
    if (!hasLine)
        notice.sentence += change.was
                               ? "; its line " + lineOf(field) + " does not exist in this configuration"
                               : " to line " + lineOf(field) + ", which does not exist in this configuration";
    else if (other != nullptr)
        notice.sentence += (change.was ? ", and stands at " : " at ") + placeOf(field) + ", where " +
                           shownName(*other) + " already is; the tree shows only one of them";
    else if (!leavesRow && !isChange)
        notice.sentence += " at " + placeOf(field);
    else if (const QString changes = isChange ? changesOf(*change.was, field) : QString(); !changes.isEmpty())
        notice.sentence += ": " + changes;
    notice.sentence += '.';
    if (leavesRow)
        notice.sentence += " Its row under " + lineOf(*change.was) + " stays in the database.";
    if (other != nullptr)
        notice.remedies.push_back(moveBehindLastOfLine(field, model));
    else if (leavesRow)
        notice.remedies.push_back(undoLast());
    if (leavesRow)
        notice.remedies.push_back(addInstead(field, model));
    return notice;
}

DocumentNotice noticeForRemoval(const EditStep &step)
{
    if (step.lines.empty())
        return {"Field " + shownName(*step.fields.front().was) + " removed.", {undoLast()}};
    const bool hasRenumbered = step.lines.size() > 1;
    return {"Line " + shownName(*step.lines.front().was) + " removed" +
                (hasRenumbered ? ", the lines behind it renumbered." : "."),
            {undoLast()}};
}

} // namespace

DocumentNotice noticeFor(const EditStep &step, const Model &model)
{
    switch (step.kind) {
    case StepKind::Undone:
        return {"Undone: " + step.text() + '.'};
    case StepKind::Redone:
        return {"Made again: " + step.text() + '.'};
    case StepKind::Done:
        break;
    }
    if (!step.label.sentence.isEmpty())
        return {step.label.sentence, {undoLast()}};
    const bool isRemoval = step.lines.empty() ? !step.fields.front().is : !step.lines.front().is;
    if (isRemoval)
        return noticeForRemoval(step);
    return step.lines.empty() ? noticeForField(step.fields.front(), model)
                              : noticeForLine(step.lines.front(), model);
}

DocumentNotice noticeFor(const SaveReport &report)
{
    const QString rest = report.unsaved == 0 ? QStringLiteral("; no change is unsaved.")
                                             : "; " + counted(report.unsaved, "change") +
                                                   (report.unsaved == 1 ? " is" : " are") + " still unsaved.";
    DocumentNotice notice;
    if (report.result.code == errors::UserInterrupt)
        notice.sentence = "Saving was stopped" + rest;
    else if (report.result.errorCount > 0)
        notice.sentence = "Saved with " + counted(report.result.errorCount, "error") + rest;
    else
        notice.sentence = report.before.total() == 0 ? QStringLiteral("Saved; there were no changes.")
                                                     : "Saved: " + report.before.text() + '.';
    if (report.unsaved > 0)
        notice.remedies.push_back({Remedy::Kind::ShowUnsaved, QStringLiteral("Unsaved changes…"),
                                   QStringLiteral("Lists what the database does not hold yet.")});
    return notice;
}

RecordReference firstRecordOf(const EditStep &step)
{
    const auto keyIn = [](const auto &change) { return keyOf(change.was ? *change.was : *change.is); };
    return step.lines.empty() ? RecordReference{RecordKind::Field, keyIn(step.fields.front())}
                              : RecordReference{RecordKind::Line, keyIn(step.lines.front())};
}

std::optional<RecordReference> apply(const Remedy &remedy, Document &document)
{
    const auto store = [&](Edit &edit) { edit.fields.store(remedy.field); };
    switch (remedy.kind) {
    case Remedy::Kind::Undo: {
        const EditStep *step = document.undoable();
        if (step == nullptr)
            return {};
        const RecordReference record = firstRecordOf(*step);
        document.undo();
        return record;
    }
    case Remedy::Kind::MoveFields: {
        const int index =
            document.model().lines.find(remedy.line.configuration, remedy.line.name, remedy.line.nameIndex);
        if (index < 0)
            return {};
        const Line line = document.model().lines[index];
        document.edit({"move of the fields of " + nameOf(line),
                       "The fields of line " + shownName(line) +
                           QStringLiteral(" have message index %1 now.").arg(line.messageIndex)},
                      [&](Edit &edit) { moveFieldsToLine(edit.model(), remedy.line); });
        return RecordReference{RecordKind::Line, remedy.line};
    }
    case Remedy::Kind::AddInstead:
        document.undo();
        document.edit({}, store);
        return RecordReference{RecordKind::Field, keyOf(remedy.field)};
    case Remedy::Kind::StoreField:
        document.edit({}, store);
        return RecordReference{RecordKind::Field, keyOf(remedy.field)};
    case Remedy::Kind::ShowUnsaved:
        return {};
    }
    Q_UNREACHABLE();
}

} // namespace varnow
