#include "storage/recovery.h"

#include "base/RuntimeError.h"
#include "base/folders.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <QUuid>

#include <algorithm>

namespace varnow {

namespace {

constexpr int formatVersion = 1;

/// Begins the names of all files for a database.
QString namePrefix(const db::ConnectionSettings &database)
{
    const db::ConnectionSettings names = database.trimmed();
    const QByteArray text = (names.server + u'\n' + names.database).toUtf8();
    const QByteArray hash = QCryptographicHash::hash(text, QCryptographicHash::Sha256);
    return QString::fromLatin1(hash.toHex().left(16)) + u'-';
}

std::unique_ptr<QLockFile> lockFor(const QString &path)
{
    auto lock = std::make_unique<QLockFile>(path + ".lock");
    lock->setStaleLockTime(0); // only a program that is gone leaves a stale one
    return lock;
}

template <class Record> QJsonValue toJson(const std::optional<Record> &record)
{
    if (!record)
        return QJsonValue::Null;
    QJsonObject object;
    for (const Column<Record> &column : Record::columns()) {
        if (const auto *text = std::get_if<QString Record::*>(&column.member))
            object[QLatin1String(column.name)] = *record.**text;
        else if (const auto *number = std::get_if<int Record::*>(&column.member))
            object[QLatin1String(column.name)] = *record.**number;
    }
    return object;
}

/// The entries of a unsaved in the order in which their records came into memory, and behind them others.
template <class Entry>
QJsonArray toJson(const QHash<RecordKey, Entry> &unsaved, const std::vector<Entry> &others)
{
    std::vector<const Entry *> entries;
    for (const Entry &entry : unsaved)
        entries.push_back(&entry);
    std::ranges::sort(entries, {}, [](const Entry *entry) { return entry->sequence; });
    for (const Entry &entry : others)
        entries.push_back(&entry);
    QJsonArray array;
    for (const Entry *entry : entries)
        array.append(QJsonObject{{"before", toJson(entry->before)},
                                 {"now", toJson(entry->now)},
                                 {"addedAnew", entry->isAddedAnew}});
    return array;
}

[[noreturn]] void refuse(const QString &reason)
{
    throw RuntimeError(errors::TypeMismatch, reason);
}

template <class Record> std::optional<Record> recordFrom(const QJsonValue &value)
{
    if (value.isNull())
        return {};
    if (!value.isObject())
        refuse(QStringLiteral("A record is missing."));
    Record record;
    for (const Column<Record> &column : Record::columns()) {
        const QJsonValue cell = value[QLatin1String(column.name)];
        if (const auto *text = std::get_if<QString Record::*>(&column.member)) {
            if (!cell.isString())
                refuse(QStringLiteral("%1 is no text.").arg(QLatin1String(column.name)));
            record.**text = cell.toString();
        } else if (const auto *number = std::get_if<int Record::*>(&column.member)) {
            if (!cell.isDouble() || cell.toInt() != cell.toDouble())
                refuse(QStringLiteral("%1 is no number.").arg(QLatin1String(column.name)));
            record.**number = cell.toInt();
        }
    }
    return record;
}

template <class Record> std::vector<UnsavedChange<Record>> entriesFrom(const QJsonValue &value)
{
    if (!value.isArray())
        refuse(QStringLiteral("A list of records is missing."));
    std::vector<UnsavedChange<Record>> entries;
    for (const QJsonArray array = value.toArray(); const QJsonValue entry : array) {
        entries.push_back({recordFrom<Record>(entry["before"]), recordFrom<Record>(entry["now"]), 0,
                           entry["addedAnew"].toBool()});
        if (!entries.back().before && !entries.back().now)
            refuse(QStringLiteral("A change is empty."));
    }
    return entries;
}

/// Applies one change to a table that holds what the database does. Returns false when the record has changed
/// there meanwhile.
template <class Table, class Entry> bool apply(const Entry &entry, Table &table)
{
    const auto &any = entry.now ? *entry.now : *entry.before;
    const int index = table.find(any.configuration, any.name, any.nameIndex);
    using Record = std::remove_cvref_t<decltype(any)>;
    const std::optional<Record> current = index < 0 ? std::nullopt : std::optional<Record>(table[index]);
    if (sameContent(current, entry.now))
        return true;
    if (!sameContent(current, entry.before))
        return false;
    if (index >= 0 && (!entry.now || entry.isAddedAnew))
        table.remove(index);
    if (entry.now) {
        Record record = *entry.now;
        record.id = current && !entry.isAddedAnew && sameKey(*current, record) ? current->id : -1;
        table.store(std::move(record));
    }
    return true;
}

} // namespace

RecoveryFile::RecoveryFile(const db::ConnectionSettings &database)
    : m_database(database)
    , m_path(stateFolder() + u'/' + namePrefix(database) + QUuid::createUuid().toString(QUuid::Id128) +
             ".json")
    , m_lock(lockFor(m_path))
{
}

bool RecoveryFile::write(const Model &model, const LeftChanges &conflicts)
{
    if (!model.hasUnsavedChanges() && conflicts.isEmpty()) {
        remove();
        return true;
    }
    if (!QDir().mkpath(stateFolder()) || !(m_lock->isLocked() || m_lock->tryLock(0)))
        return false;
    const QJsonObject contents{{"version", formatVersion},
                               {"server", m_database.server},
                               {"database", m_database.database},
                               {"time", QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs)},
                               {"lines", toJson(model.lines.unsaved().entries(), conflicts.lines)},
                               {"fields", toJson(model.fields.unsaved().entries(), conflicts.fields)}};
    QSaveFile file(m_path);
    return file.open(QIODevice::WriteOnly) && file.setPermissions(QFile::ReadOwner | QFile::WriteOwner) &&
           file.write(QJsonDocument(contents).toJson(QJsonDocument::Compact)) >= 0 && file.commit();
}

void RecoveryFile::remove()
{
    QFile::remove(m_path);
    m_lock->unlock();
}

std::vector<LeftFile> LeftFile::findAll(const db::ConnectionSettings &database)
{
    std::vector<LeftFile> found;
    const QDir folder(stateFolder());
    const QString prefix = namePrefix(database);
    const QStringList names = folder.entryList(QDir::Files, QDir::Time); // a pattern would slow every start
    for (const QString &name : names) {
        if (!name.startsWith(prefix) || !name.endsWith(".json"))
            continue;
        std::unique_ptr<QLockFile> lock = lockFor(folder.filePath(name));
        if (lock->tryLock(0))
            found.push_back(LeftFile(folder.filePath(name), std::move(lock)));
    }
    return found;
}

LeftChanges LeftFile::read() const
{
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly))
        refuse(file.errorString());
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &error);
    if (error.error != QJsonParseError::NoError)
        refuse(error.errorString());
    if (document["version"].toInt() != formatVersion)
        refuse(QStringLiteral("It was written by another version."));
    return {QDateTime::fromString(document["time"].toString(), Qt::ISODateWithMs),
            entriesFrom<Line>(document["lines"]), entriesFrom<Field>(document["fields"])};
}

void LeftFile::remove()
{
    QFile::remove(m_path);
    m_lock->unlock();
}

QString LeftFile::putAside()
{
    const QString aside = m_path + u'.' + QUuid::createUuid().toString(QUuid::Id128) + ".unreadable";
    const bool renamed = QFile::rename(m_path, aside);
    m_lock->unlock();
    return renamed ? aside : QString();
}

LeftChanges restore(const LeftChanges &changes, Model &model)
{
    LeftChanges refused;
    refused.time = changes.time;
    for (const auto &entry : changes.lines) {
        if (!apply(entry, model.lines))
            refused.lines.push_back(entry);
    }
    for (const auto &entry : changes.fields) {
        if (!apply(entry, model.fields))
            refused.fields.push_back(entry);
    }
    return refused;
}

} // namespace varnow
