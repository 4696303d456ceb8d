// The part of the editor that tells what was done, and what may not have been meant, without a box in the
// way.

#include "editor/EditorWindow.h"

#include "base/names.h"
#include "base/text.h"
#include "model/RecordReference.h"
#include "model/differences.h"
#include "model/issues.h"
#include "ui/Application.h"

#include <algorithm>
#include <utility>

namespace varnow {

namespace {

QString placeOf(const Field &field)
{
    return QStringLiteral("%1.%2").arg(field.messageIndex).arg(field.position);
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
    const bool hasMoved =
        change.was->line != change.is->line || change.was->lineIndex != change.is->lineIndex;
    return hasMoved ? name + " moved from " + shownName(change.was->line, change.was->lineIndex) + " to " +
                          shownName(change.is->line, change.is->lineIndex)
                    : name + " changed";
}

} // namespace

void EditorWindow::tell(const ui::Notice &notice)
{
    m_notice = notice;
    m_noticeBar.show(notice);
}

/// Tells how much was loaded; what was typed until then goes with it.
void EditorWindow::tellLoaded(const QString &verb, const TypedEntries &typed)
{
    const Model &model = m_state.model;
    tellReplaced(typed, verb + ": " + counted(model.lines.size(), "line") + " and " +
                            counted(model.fields.size(), "field") + '.');
}

/// Tells what the last step stored, if there was one.
void EditorWindow::tellStored(bool hasChanged)
{
    if (!hasChanged)
        return tell({"Nothing was changed: the record is as it was."});
    const EditStep &step = *m_state.model.undoable();
    if (!step.lines.empty())
        tellStoredLine(step.lines.front());
    else
        tellStoredField(step.fields.front());
}

void EditorWindow::tellStoredLine(const Change<Line> &change)
{
    const Line line = *change.is;
    const QString name = shownName(line);
    if (!change.was)
        return tell(
            {"Line " + name + QStringLiteral(" added with message index %1.").arg(line.messageIndex)});
    const int oldIndex = change.was->messageIndex;
    const QString sentence = "Line " + name + " changed: " + changesOf(*change.was, line) + '.';
    const auto follows = [&](const Field &field) {
        return field.messageIndex == oldIndex && field.lineIndex == line.nameIndex &&
               field.line == line.name && field.configuration == line.configuration;
    };
    const auto ofConfiguration = m_state.model.fields.ofConfiguration(line.configuration);
    const auto fields = static_cast<int>(std::ranges::count_if(ofConfiguration, follows));
    if (fields == 0 || oldIndex == line.messageIndex)
        return tell({sentence});
    const QString rest = (fields == 1 ? QStringLiteral(" Its field keeps")
                                      : QStringLiteral(" Its %1 fields keep").arg(fields)) +
                         QStringLiteral(" message index %1.").arg(oldIndex);
    const auto moveThem = [this, line] { moveFieldsOf(line); };
    tell({sentence + rest, {{"Move its fields", "Gives its fields the new message index too.", moveThem}}});
}

/// Gives the fields of a line its message index.
void EditorWindow::moveFieldsOf(const Line &line)
{
    {
        const Editing editing(m_state.model, "move of the fields of " + nameOf(line));
        moveFieldsToLine(m_state.model, keyOf(line));
    }
    recordsChanged(m_state.model.undoable());
    showNode({RecordKind::Line, keyOf(line)});
    tell({"The fields of line " + shownName(line) +
              QStringLiteral(" have message index %1 now.").arg(line.messageIndex),
          {undoButton()}});
}

void EditorWindow::tellStoredField(const Change<Field> &change)
{
    const Field field = *change.is;
    const Model &model = m_state.model;
    const QString stored = storedText(change);
    if (change.was && change.was->id > 0 && !sameKey(*change.was, field))
        return tellMovedField(change);
    if (model.lines.find(field.configuration, field.line, field.lineIndex) < 0)
        return tell({change.was ? stored + "; its line " + shownName(field.line, field.lineIndex) +
                                      " does not exist in this configuration."
                                : stored + " to line " + shownName(field.line, field.lineIndex) +
                                      ", which does not exist in this configuration."});
    const auto isInTheWay = [&](const Field &other) {
        return other.position == field.position && other.messageIndex == field.messageIndex &&
               other.configuration == field.configuration && keyOf(other) != keyOf(field);
    };
    const auto ofConfiguration = model.fields.ofConfiguration(field.configuration);
    const auto inTheWay = std::ranges::find_if(ofConfiguration, isInTheWay);
    if (inTheWay == ofConfiguration.end()) {
        const bool isChange = change.was && sameKey(*change.was, field);
        return tell(
            {stored + (isChange ? ": " + changesOf(*change.was, field) : " at " + placeOf(field)) + '.'});
    }
    Field moved = field;
    moved.position = model.fields.nextPosition(field.configuration, field.line, field.lineIndex);
    const QString at = change.was ? ", and stands at " : " at ";
    tell({stored + at + placeOf(field) + ", where " + shownName(*inTheWay) +
              " already is; the tree shows only one of them.",
          {{"Move to " + placeOf(moved), "Gives the field the position behind the last one of its line.",
            [this, moved] { storeInstead(moved); }}}});
}

/// A field that had a row was stored under another line.
void EditorWindow::tellMovedField(const Change<Field> &change)
{
    Field added = *change.is;
    while (m_state.model.fields.find(added.configuration, added.name, added.nameIndex) >= 0)
        ++added.nameIndex;
    const auto addInstead = [this, added] {
        m_state.model.undo();
        storeInstead(added);
    };
    tell({storedText(change) + ". Its row under " + shownName(change.was->line, change.was->lineIndex) +
              " stays in the database.",
          {undoButton(),
           {"Add as " + nameOf(added.name, added.nameIndex) + " instead",
            "Leaves the field as it was and adds the new one under an index of its own.", addInstead}}});
}

/// Stores a field in place of what the last Change stored.
void EditorWindow::storeInstead(const Field &field)
{
    const std::size_t steps = m_state.model.stepCount();
    {
        const Editing editing(m_state.model);
        m_state.model.fields.store(field);
    }
    recordsChanged(m_state.model.undoable());
    showNode({RecordKind::Field, keyOf(field)});
    tellStored(m_state.model.stepCount() > steps);
}

void EditorWindow::tellRemoved(const EditStep &step)
{
    if (step.lines.empty())
        return tell({"Field " + shownName(*step.fields.front().was) + " removed.", {undoButton()}});
    const bool hasRenumbered = step.lines.size() > 1;
    tell({"Line " + shownName(*step.lines.front().was) + " removed" +
              (hasRenumbered ? ", the lines behind it renumbered." : "."),
          {undoButton()}});
}

void EditorWindow::tellSaved(const ChangeCounts &before, const SaveResult &result)
{
    const int unsaved = m_state.model.countUnsaved().total();
    const QString rest = unsaved == 0 ? QStringLiteral("; no change is unsaved.")
                                      : "; " + counted(unsaved, "change") + (unsaved == 1 ? " is" : " are") +
                                            " still unsaved.";
    ui::Notice notice;
    if (result.code == errors::UserInterrupt)
        notice.sentence = "Saving was stopped" + rest;
    else if (result.errorCount > 0)
        notice.sentence = "Saved with " + counted(result.errorCount, "error") + rest;
    else
        notice.sentence = before.total() == 0 ? QStringLiteral("Saved; there were no changes.")
                                              : "Saved: " + before.text() + '.';
    if (unsaved > 0)
        notice.buttons.push_back(unsavedButton());
    tell(notice);
}

ui::Notice::Button EditorWindow::undoButton()
{
    return {"Undo", "Takes back what was done last.", [this] { undo(); }};
}

ui::Notice::Button EditorWindow::unsavedButton()
{
    return {"Unsaved changes…", "Lists what the database does not hold yet.", [this] { showUnsaved(); }};
}

/// Does what fills the entries anew. Returns what the user had typed there and not stored.
EditorWindow::TypedEntries EditorWindow::replacing(const std::function<void()> &show)
{
    TypedEntries typed;
    for (EntryPage *page : m_state.pages) {
        if (page->hasTypedEntries())
            typed.push_back({page, page->entries(), page->namedRecord()});
    }
    show();
    std::erase_if(typed, [](const TypedPage &page) { return page.page->entries() == page.texts; });
    return typed;
}

/// Tells something, and that what was typed is no longer in the entries.
void EditorWindow::tellReplaced(const TypedEntries &typed, const QString &sentence)
{
    if (typed.empty())
        return sentence.isEmpty() ? void() : tell({sentence});
    const std::optional<RecordReference> &name = typed.front().record;
    const QString of = name && !name->key.name.isEmpty() ? " for " + shownName(name->key) : QString();
    tell({(sentence.isEmpty() ? QString() : sentence + ' ') + "The entries typed" + of + " were not stored.",
          {{"Bring them back", "Puts what was typed into the entries again.",
            [this, typed] { bringBack(typed); }}}});
}

/// Tells what was done to many records, which can be undone, and of the entries that it replaced.
void EditorWindow::tellDone(const TypedEntries &typed, const QString &sentence)
{
    if (typed.empty())
        tell({sentence, {undoButton()}});
    else
        tellReplaced(typed, sentence);
}

void EditorWindow::bringBack(const TypedEntries &typed)
{
    const auto page = std::ranges::find(m_state.pages, typed.front().page);
    m_tabs.setCurrentPage(static_cast<int>(page - m_state.pages.begin()));
    const TypedEntries replaced = replacing([&typed] {
        for (const TypedPage &entries : typed)
            entries.page->setEntries(entries.texts);
    });
    typed.front().page->focusFirst();
    tellReplaced(replaced, "The entries are back; they are not stored yet.");
}

} // namespace varnow
