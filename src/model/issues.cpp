#include "model/issues.h"

#include "base/text.h"
#include "model/TreeOrder.h"
#include "model/lineLayout.h"
#include "model/ownership.h"

#include <QSet>

#include <algorithm>
#include <map>
#include <unordered_map>

namespace varnow {

namespace {

struct OwnedField
{
    const Field *field;
    const Line *line; ///< the one that it names, null where there is none
    int sequence;     ///< number among the fields of the configuration
};

/// The records of one configuration, in table order.
struct Records
{
    std::vector<const Line *> lines;
    std::vector<OwnedField> fields;
};

/// The fields of one line.
using FieldsOfLine = std::vector<const OwnedField *>;

/// By record: what is to be said about its letter case.
using LetterCaseTexts = std::unordered_map<const void *, QString>;

QString textOf(const Line &line)
{
    return "Line " + shownName(line);
}

QString textOf(const Field &field)
{
    return "Field " + shownName(field);
}

/// "character 5" or "characters 5 to 7".
QString charactersText(int start, int length)
{
    return length == 1 ? QStringLiteral("character %1").arg(start)
                       : QStringLiteral("characters %1 to %2").arg(start).arg(qint64{start} + length - 1);
}

/// What was found in one configuration.
class Found
{
public:
    explicit Found(const TreeOrder &order) : m_order(order) {}

    void add(const Line &line, const QString &text)
    {
        add(m_order.placeOf(line), {text, {RecordKind::Line, keyOf(line)}});
    }

    void add(const OwnedField &owned, const QString &text, Fix fix = Fix::None)
    {
        const Field &field = *owned.field;
        add(m_order.placeOf(field, owned.sequence),
            {text, {RecordKind::Field, keyOf(field)}, fix, owned.line ? keyOf(*owned.line) : RecordKey()});
    }

    /// Hands over all of it in the order of the tree.
    void moveTo(std::vector<Issue> &issues)
    {
        std::ranges::stable_sort(m_issues, {}, &PlacedIssue::place);
        for (PlacedIssue &placed : m_issues)
            issues.push_back(std::move(placed.issue));
    }

private:
    struct PlacedIssue
    {
        TreePlace place;
        Issue issue;
    };

    void add(TreePlace place, Issue issue) { m_issues.push_back({place, std::move(issue)}); }

    const TreeOrder &m_order;
    std::vector<PlacedIssue> m_issues;
};

Issue unknownConfiguration(const QString &configuration, const Records &records)
{
    const QString text = configuration.isEmpty()
                             ? QStringLiteral("There are records of no configuration: %1 and %2.")
                             : QStringLiteral("The configuration is not in the catalogue. It has %1 and %2.");
    const bool hasLine = !records.lines.empty();
    const RecordReference first =
        hasLine ? RecordReference{RecordKind::Line, keyOf(*records.lines.front())}
                : RecordReference{RecordKind::Field, keyOf(*records.fields.front().field)};
    return {text.arg(counted(qint64(records.lines.size()), "line"),
                     counted(qint64(records.fields.size()), "field")),
            first};
}

void checkMessageIndexes(std::vector<const Line *> lines, const TreeOrder &order, Found &found)
{
    std::ranges::stable_sort(lines, {}, &Line::messageIndex);
    qint64 expected = 1;
    for (const Line *line : lines) {
        const int messageIndex = line->messageIndex;
        if (const Line *shown = order.lineAt(messageIndex); shown != line)
            found.add(*line, QStringLiteral(
                                 "%1 has message index %2 as line %3 has, so that the tree does not show it.")
                                 .arg(textOf(*line), QString::number(messageIndex), shownName(*shown)));
        if (messageIndex == expected + 1)
            found.add(*line, QStringLiteral("No line before line %1 has message index %2.")
                                 .arg(shownName(*line), QString::number(expected)));
        else if (messageIndex > expected)
            found.add(*line, QStringLiteral("No line before line %1 has a message index from %2 to %3.")
                                 .arg(shownName(*line), QString::number(expected),
                                      QString::number(messageIndex - 1)));
        expected = std::max(expected, qint64{messageIndex} + 1);
    }
}

void checkMembership(const OwnedField &owned, const TreeOrder &order, Found &found)
{
    const Field &field = *owned.field;
    if (owned.line == nullptr) {
        found.add(owned, QStringLiteral("%1 belongs to line %2, which does not exist.")
                             .arg(textOf(field), shownName(field.line, field.lineIndex)));
        return;
    }
    if (field.messageIndex == owned.line->messageIndex)
        return;
    const Line *other = order.lineAt(field.messageIndex);
    found.add(owned,
              QStringLiteral("%1 has message index %2, but its line %3 has %4. The tree shows it %5.")
                  .arg(textOf(field), QString::number(field.messageIndex), shownName(*owned.line),
                       QString::number(owned.line->messageIndex),
                       other == nullptr ? QStringLiteral("nowhere") : "under line " + shownName(*other)),
              Fix::MoveItsFields);
}

void checkPositions(FieldsOfLine fields, Found &found)
{
    const auto positionOf = [](const OwnedField *owned) { return owned->field->position; };
    std::ranges::stable_sort(fields, {}, positionOf);
    const OwnedField *first = nullptr; // of a position
    for (const OwnedField *owned : fields) {
        if (first == nullptr || positionOf(first) != positionOf(owned))
            first = owned;
        else
            found.add(*owned, QStringLiteral(
                                  "%1 has position %2 of line %3 as field %4 has, so that the tree does not "
                                  "show it.")
                                  .arg(textOf(*owned->field), QString::number(positionOf(owned)),
                                       shownName(*owned->line), shownName(*first->field)));
    }
}

void checkLayout(const FieldsOfLine &fields, Found &found)
{
    std::vector<const Field *> plain;
    std::unordered_map<const Field *, const OwnedField *> owners;
    for (const OwnedField *owned : fields) {
        plain.push_back(owned->field);
        owners[owned->field] = owned;
    }
    const LineLayout layout = layoutOf(plain);
    const auto add = [&](const LayoutBar &bar, const QString &text) { found.add(*owners[bar.field], text); };
    for (const LayoutBar &bar : layout.bars) {
        if (bar.length < 1)
            add(bar, textOf(*bar.field) + " is a fixed-length field without a length.");
        if (bar.start < 1)
            add(bar, textOf(*bar.field) + " is a fixed-length field without a character position.");
    }
    for (const LayoutOverlap &overlap : layout.overlaps) {
        const LayoutBar &bar = layout.bars[overlap.second];
        add(bar, QStringLiteral("%1 overlaps field %2 at %3.")
                     .arg(textOf(*bar.field), shownName(*layout.bars[overlap.first].field),
                          charactersText(overlap.start, overlap.length)));
    }
    for (const LayoutGap &gap : layout.gaps) {
        const LayoutBar &bar = layout.bars[gap.before];
        add(bar, QStringLiteral("No field fills %1 of line %2, before field %3.")
                     .arg(charactersText(gap.start, gap.length),
                          shownName(bar.field->line, bar.field->lineIndex), shownName(*bar.field)));
    }
}

void checkLookup(const OwnedField &owned, const QSet<QString> &dataFieldNames, Found &found)
{
    const QString &lookup = owned.field->lookup;
    if (!lookup.isEmpty() && !dataFieldNames.contains(lookup))
        found.add(owned,
                  QStringLiteral("The lookup of field %1 is \"%2\", which is no data field name of the "
                                 "configuration.")
                      .arg(shownName(*owned.field), isolated(lookup)));
}

void checkConfiguration(const Records &records, const std::optional<QSet<QString>> &dataFieldNames,
                        const LetterCaseTexts &letterCase, std::vector<Issue> &issues)
{
    const TreeOrder order(records.lines);
    Found found(order);
    const auto checkLetterCase = [&](const auto &entry, const void *record) {
        if (const auto text = letterCase.find(record); text != letterCase.end())
            found.add(entry, text->second);
    };
    checkMessageIndexes(records.lines, order, found);
    for (const Line *line : records.lines)
        checkLetterCase(*line, line);
    std::unordered_map<const Line *, FieldsOfLine> byLine;
    for (const OwnedField &owned : records.fields) {
        checkMembership(owned, order, found);
        checkLetterCase(owned, owned.field);
        if (dataFieldNames)
            checkLookup(owned, *dataFieldNames, found);
        if (owned.line != nullptr)
            byLine[owned.line].push_back(&owned);
    }
    for (const Line *line : records.lines) {
        if (const auto fields = byLine.find(line); fields != byLine.end()) {
            checkPositions(fields->second, found);
            checkLayout(fields->second, found);
        }
    }
    found.moveTo(issues);
}

std::map<QString, Records> recordsByConfiguration(const Model &model, const std::optional<QString> &wanted)
{
    std::map<QString, Records> all;
    Records *records = nullptr;
    QString configuration; // of these
    const auto recordsOf = [&](const auto &record) {
        if (records == nullptr || configuration != record.configuration) {
            configuration = record.configuration;
            records = &all[configuration];
        }
        return records;
    };
    for (const Line &line : model.lines) {
        if (!wanted || line.configuration == *wanted)
            recordsOf(line)->lines.push_back(&line);
    }
    LineFinder finder(model.lines);
    for (const Field &field : model.fields) {
        if (wanted && field.configuration != *wanted)
            continue;
        auto &fields = recordsOf(field)->fields;
        fields.push_back({&field, finder.lineOf(field), static_cast<int>(fields.size())});
    }
    return all;
}

/// The columns by which a save finds the row of a record, in one text.
template <class Record> QString rowKey(const Record &record)
{
    QStringList values;
    for (const Column<Record> &column : Record::columns()) {
        if (column.use == ColumnUse::Key)
            values += textIn(column, record);
    }
    return values.join(QChar(0));
}

/// Finds the records of a table whose rows' keys differ in letter case only.
template <class Table> void addLetterCaseTexts(const Table &table, LetterCaseTexts &texts)
{
    using Record = std::decay_t<decltype(*table.begin())>;
    QHash<QString, std::vector<const Record *>> groups;
    for (const Record &record : table)
        groups[rowKey(record).toCaseFolded()].push_back(&record);
    for (const auto &group : std::as_const(groups)) {
        for (const Record *record : group) {
            const Record *other = group.front() == record ? group.back() : group.front();
            if (rowKey(*other) != rowKey(*record))
                texts[record] =
                    QStringLiteral("%1 differs from %2 in letter case only, which the database does "
                                   "not tell apart: both are saved into one row.")
                        .arg(textOf(*record), shownName(*other));
        }
    }
}

} // namespace

std::vector<Issue> issuesIn(const Model &model, const IssueContext &context,
                            const std::optional<QString> &configuration)
{
    LetterCaseTexts letterCase;
    if (!context.tellsLetterCaseApart) {
        addLetterCaseTexts(model.lines, letterCase);
        addLetterCaseTexts(model.fields, letterCase);
    }
    std::vector<Issue> issues;
    std::map<QString, Records> all = recordsByConfiguration(model, configuration);
    const auto check = [&](const QString &name, const Records &records) {
        std::optional<QSet<QString>> dataFieldNames;
        if (const auto names = context.dataFieldNames.find(name); names != context.dataFieldNames.end())
            dataFieldNames.emplace(names->begin(), names->end());
        checkConfiguration(records, dataFieldNames, letterCase, issues);
    };
    for (const QString &name : context.configurations) {
        if (const auto known = all.find(name); known != all.end()) {
            check(name, known->second);
            all.erase(known);
        }
    }
    for (const auto &[name, records] : all) {
        issues.push_back(unknownConfiguration(name, records));
        check(name, records);
    }
    return issues;
}

void moveFieldsToLine(Model &model, const RecordKey &line)
{
    model.fields.copyMessageIndexes(
        model.lines, {[&](const QString &configuration) { return configuration == line.configuration; },
                      [&](const Field &field) { return belongsTo(field, line); }});
}

} // namespace varnow
