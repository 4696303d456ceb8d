#include "storage/journalFormat.h"

#include "base/RuntimeError.h"

#include <QCryptographicHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace varnow {

namespace {

constexpr int firstFormat = 1;
constexpr int journalFormat = 2;
constexpr qsizetype checksumLength = 16;

/// By JournalKind.
constexpr const char *kindNames[] = {"line", "field", "lineConflict", "fieldConflict", "draft"};

QByteArray checksum(QByteArrayView text)
{
    return QCryptographicHash::hash(text, QCryptographicHash::Sha256).toHex().left(checksumLength);
}

QByteArray lineOf(const QJsonObject &object)
{
    const QByteArray json = QJsonDocument(object).toJson(QJsonDocument::Compact);
    return checksum(json) + ' ' + json + '\n';
}

/// The object of a line; nothing when it is not as it was written.
std::optional<QJsonObject> objectIn(QByteArrayView line)
{
    if (line.size() <= checksumLength || line[checksumLength] != ' ')
        return {};
    const QByteArrayView json = line.sliced(checksumLength + 1);
    if (checksum(json) != line.first(checksumLength))
        return {};
    const QJsonDocument document = QJsonDocument::fromJson(json.toByteArray());
    return document.isObject() ? std::optional(document.object()) : std::nullopt;
}

QString now()
{
    return QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs);
}

QDateTime timeFrom(const QJsonValue &value)
{
    return QDateTime::fromString(value.toString(), Qt::ISODateWithMs);
}

[[noreturn]] void refuse(const QString &reason)
{
    throw RuntimeError(errors::TypeMismatch, reason);
}

/// Whether a cell is left out, or may be.
bool isBlank(const QJsonValue &cell)
{
    return cell.isNull() || cell == QJsonValue(QString()) || cell == QJsonValue(0);
}

QJsonValue cellOf(int number)
{
    return number;
}

QJsonValue cellOf(const QString &text)
{
    return text;
}

QJsonValue cellOf(const QDateTime &time)
{
    return time.toString(Qt::ISODateWithMs);
}

void read(const QJsonValue &cell, const char *column, int &number)
{
    if (!cell.isDouble() || cell.toInt() != cell.toDouble())
        refuse(QStringLiteral("%1 is no number.").arg(QLatin1String(column)));
    number = cell.toInt();
}

void read(const QJsonValue &cell, const char *column, QString &text)
{
    if (!cell.isString())
        refuse(QStringLiteral("%1 is no text.").arg(QLatin1String(column)));
    text = cell.toString();
}

void read(const QJsonValue &cell, const char *column, QDateTime &time)
{
    time = timeFrom(cell);
    if (!time.isValid() && !isBlank(cell))
        refuse(QStringLiteral("%1 is no time.").arg(QLatin1String(column)));
}

template <class Record> QJsonValue toJson(const std::optional<Record> &record)
{
    if (!record)
        return QJsonValue::Null;
    QJsonObject object;
    for (const Column<Record> &column : Record::columns()) {
        const QJsonValue cell =
            std::visit([&](auto member) { return cellOf(std::as_const(*record).*member); }, column.member);
        if (!isBlank(cell))
            object[QLatin1String(column.name)] = cell;
    }
    return object;
}

/// A column that is not in the file is one that was added later: it is empty. One that only the file has is
/// of a newer version: dropping its value would lose it.
template <class Record> std::optional<Record> recordFrom(const QJsonValue &value)
{
    if (value.isNull())
        return {};
    if (!value.isObject())
        refuse(QStringLiteral("A record is missing."));
    QJsonObject cells = value.toObject();
    Record record;
    for (const Column<Record> &column : Record::columns()) {
        const QJsonValue cell = cells.take(QLatin1String(column.name));
        if (!cell.isUndefined())
            std::visit([&](auto member) { read(cell, column.name, record.*member); }, column.member);
    }
    for (auto cell = cells.constBegin(); cell != cells.constEnd(); ++cell) {
        if (!isBlank(*cell))
            refuse(QStringLiteral("It holds a column that this version does not know: %1.").arg(cell.key()));
    }
    return record;
}

template <class Record> UnsavedChange<Record> changeFrom(const QJsonValue &value)
{
    UnsavedChange<Record> change{recordFrom<Record>(value["before"]), recordFrom<Record>(value["now"]),
                                 value["sequence"].toInt(), value["addedAnew"].toBool()};
    if (!change.before && !change.now)
        refuse(QStringLiteral("A change is empty."));
    return change;
}

template <class Record> std::vector<UnsavedChange<Record>> changesFrom(const QJsonValue &value)
{
    if (!value.isArray())
        refuse(QStringLiteral("A list of records is missing."));
    std::vector<UnsavedChange<Record>> changes;
    for (const QJsonArray array = value.toArray(); const QJsonValue change : array)
        changes.push_back(changeFrom<Record>(change));
    return changes;
}

QJsonValue stateOf(const JournalEntry::Settled &)
{
    return QJsonValue::Null;
}

template <class Record> QJsonValue stateOf(const UnsavedChange<Record> &change)
{
    return QJsonObject{{"before", toJson(change.before)},
                       {"now", toJson(change.now)},
                       {"sequence", change.sequence},
                       {"addedAnew", change.isAddedAnew}};
}

QJsonValue stateOf(const PageDraft &draft)
{
    return QJsonObject{{"page", draft.page},
                       {"configuration", draft.configuration},
                       {"texts", QJsonArray::fromStringList(draft.texts)}};
}

PageDraft draftFrom(const QJsonValue &value)
{
    PageDraft draft{value["page"].toString(), value["configuration"].toString(), {}};
    for (const QJsonArray array = value["texts"].toArray(); const QJsonValue text : array)
        draft.texts += text.toString();
    return draft;
}

template <class Record> QJsonArray columnNames()
{
    QJsonArray names;
    for (const Column<Record> &column : Record::columns())
        names.append(QLatin1String(column.name));
    return names;
}

/// The last state of each key, and what else the lines tell.
class Reader
{
public:
    void read(QByteArrayView line, bool isWhole)
    {
        const std::optional<QJsonObject> object = objectIn(line);
        if (!object) {
            m_changes.damagedParts += isWhole ? 1 : 0;
            return;
        }
        m_hasReadSomething = true;
        if (object->contains("version") && object->value("version").toInt() != journalFormat)
            refuse(QStringLiteral("It was written by another version."));
        if (object->contains("time"))
            m_changes.time = timeFrom(object->value("time"));
        if (object->contains("kind"))
            m_states[{kindOf(object->value("kind")), keyFrom(object->value("key"))}] = object->value("state");
    }

    LeftChanges changes()
    {
        if (!m_hasReadSomething)
            refuse(QStringLiteral("It is damaged."));
        for (auto state = m_states.cbegin(); state != m_states.cend(); ++state) {
            if (!state->isNull())
                add(state.key().kind, *state);
        }
        takeInOrder(m_lines, m_changes.lines);
        takeInOrder(m_lineConflicts, m_changes.lines);
        takeInOrder(m_fields, m_changes.fields);
        takeInOrder(m_fieldConflicts, m_changes.fields);
        std::ranges::sort(m_changes.drafts, {}, &PageDraft::page);
        return m_changes;
    }

private:
    static JournalKind kindOf(const QJsonValue &value)
    {
        const auto *const found = std::ranges::find_if(
            kindNames, [name = value.toString()](const char *kind) { return name == QLatin1String(kind); });
        if (found == std::end(kindNames))
            refuse(QStringLiteral("It was written by another version."));
        return static_cast<JournalKind>(found - kindNames);
    }

    static RecordKey keyFrom(const QJsonValue &value)
    {
        return {value[0].toString(), value[1].toString(), value[2].toInt()};
    }

    void add(JournalKind kind, const QJsonValue &state)
    {
        switch (kind) {
        case JournalKind::Line:
            m_lines.push_back(changeFrom<Line>(state));
            return;
        case JournalKind::Field:
            m_fields.push_back(changeFrom<Field>(state));
            return;
        case JournalKind::LineConflict:
            m_lineConflicts.push_back(changeFrom<Line>(state));
            return;
        case JournalKind::FieldConflict:
            m_fieldConflicts.push_back(changeFrom<Field>(state));
            return;
        case JournalKind::Draft:
            m_changes.drafts.push_back(draftFrom(state));
            return;
        }
    }

    template <class Record>
    static void takeInOrder(std::vector<UnsavedChange<Record>> &from, std::vector<UnsavedChange<Record>> &to)
    {
        std::ranges::sort(from, {}, &UnsavedChange<Record>::sequence);
        to.insert(to.end(), from.begin(), from.end());
    }

    LeftChanges m_changes;
    QHash<JournalKey, QJsonValue> m_states;
    std::vector<UnsavedChange<Line>> m_lines, m_lineConflicts;
    std::vector<UnsavedChange<Field>> m_fields, m_fieldConflicts;
    bool m_hasReadSomething = false;
};

} // namespace

QByteArray encodeHeader(const db::ConnectionSettings &database)
{
    return lineOf({{"version", journalFormat},
                   {"server", database.server},
                   {"database", database.database},
                   {"time", now()},
                   {"lineColumns", columnNames<Line>()},
                   {"fieldColumns", columnNames<Field>()}});
}

QByteArray encodeTime()
{
    return lineOf({{"time", now()}});
}

QByteArray encode(const JournalEntry &entry)
{
    const RecordKey &key = entry.key.key;
    return lineOf({{"kind", QLatin1String(kindNames[static_cast<int>(entry.key.kind)])},
                   {"key", QJsonArray{key.configuration, key.name, key.nameIndex}},
                   {"state", std::visit([](const auto &state) { return stateOf(state); }, entry.state)}});
}

LeftChanges readJournal(const QByteArray &contents)
{
    Reader reader;
    for (qsizetype begin = 0; begin < contents.size();) {
        const qsizetype lineBreak = contents.indexOf('\n', begin);
        const qsizetype end = lineBreak < 0 ? contents.size() : lineBreak;
        reader.read(QByteArrayView(contents).sliced(begin, end - begin), lineBreak >= 0);
        begin = end + 1;
    }
    return reader.changes();
}

LeftChanges readFirstFormat(const QByteArray &contents)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(contents, &error);
    if (error.error != QJsonParseError::NoError)
        refuse(error.errorString());
    if (document["version"].toInt() != firstFormat)
        refuse(QStringLiteral("It was written by another version."));
    LeftChanges changes;
    changes.time = timeFrom(document["time"]);
    changes.lines = changesFrom<Line>(document["lines"]);
    changes.fields = changesFrom<Field>(document["fields"]);
    return changes;
}

} // namespace varnow
