#include "storage/JournalFile.h"

#include "base/folders.h"
#include "base/syncToDisk.h"
#include "storage/recoveryLocation.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUuid>

#include <algorithm>
#include <filesystem>
#include <utility>

namespace varnow {

namespace {

constexpr qint64 smallFile = 65'536;
constexpr auto forTheUserAlone = QFile::ReadOwner | QFile::WriteOwner;

QString refusal(const QString &path, const QString &why)
{
    return QStringLiteral("The file %1 could not be written: %2.").arg(QDir::toNativeSeparators(path), why);
}

QString folderOf(const QString &path)
{
    return QFileInfo(path).path();
}

} // namespace

JournalFile::JournalFile(const db::ConnectionSettings &database)
    : m_database(database)
    , m_path(stateFolder() + u'/' + recoveryPrefix(database) + QUuid::createUuid().toString(QUuid::Id128) +
             ".journal")
    , m_lock(recoveryLock(m_path))
{
}

void JournalFile::take(const JournalEntry &entry)
{
    const QByteArray line = encode(entry);
    const auto known = m_lines.find(entry.key);
    const bool isKnown = known != m_lines.end();
    if (isKnown)
        m_linesSize -= known->size();
    if (!entry.isSettled()) {
        m_linesSize += line.size();
        m_lines.insert(entry.key, line);
    } else if (isKnown) {
        m_lines.erase(known);
    } else {
        return; // the file does not know of it either
    }
    if (m_size >= 0)
        m_pending += line;
}

void JournalFile::reset()
{
    m_lines.clear();
    m_linesSize = 0;
    m_pending.clear();
    m_size = -1;
}

QString JournalFile::store()
{
    if (m_lines.isEmpty())
        return remove();
    if (!isDue(m_size + m_pending.size()))
        return append() ? QString() : writeAnew();
    const QString problem = writeAnew();
    return problem.isEmpty() || append() ? QString() : problem; // a full disk may still have room for a few
}

/// Whether a file of that size is to be written anew.
bool JournalFile::isDue(qint64 size) const
{
    return m_size < 0 || size > std::max(2 * m_linesSize, smallFile);
}

/// Appends what is pending. Returns false when the file is not, or no longer, in order.
bool JournalFile::append()
{
    QFile file(m_path);
    const auto mode = QFile::ReadWrite | QFile::ExistingOnly | QFile::Unbuffered;
    if (m_size < 0 || !file.open(mode) || file.size() != m_size)
        return false;
    if (m_pending.isEmpty())
        return true;
    const QByteArray lines = m_pending + encodeTime();
    const bool isWritten = file.seek(m_size) && file.write(lines) == lines.size() &&
                           syncToDisk(file.handle()) && file.seek(m_size) && file.readAll() == lines;
    if (!isWritten) {
        file.resize(m_size);
        return false;
    }
    m_size += lines.size();
    m_pending.clear();
    return true;
}

/// Writes the whole journal beside the one that is there, and puts it in its place.
QString JournalFile::writeAnew()
{
    const QString folder = folderOf(m_path);
    if (!QDir().mkpath(folder))
        return refusal(m_path, "there is no folder for it");
    if (m_lock->isLocked() && !QFile::exists(m_lock->fileName()))
        m_lock->unlock(); // it went with its folder
    if (!m_lock->isLocked() && !m_lock->tryLock(0))
        return refusal(m_path, "it can not be locked");
    QByteArray contents = encodeHeader(m_database);
    contents.reserve(contents.size() + m_linesSize);
    for (const QByteArray &line : std::as_const(m_lines))
        contents += line;
    const QString fresh = m_path + ".new";
    if (QString problem = writeTo(fresh, contents); !problem.isEmpty()) {
        QFile::remove(fresh);
        return problem;
    }
    std::error_code error;
    std::filesystem::rename(QFileInfo(fresh).filesystemFilePath(), QFileInfo(m_path).filesystemFilePath(),
                            error);
    if (error)
        return refusal(m_path, QString::fromStdString(error.message()));
    if (!syncFolder(folder))
        return refusal(m_path, "the disk refused its name");
    m_size = contents.size();
    m_pending.clear();
    return {};
}

/// Writes a file and reads it back.
QString JournalFile::writeTo(const QString &path, const QByteArray &contents) const
{
    QFile::remove(path);
    QFile file(path);
    if (!file.open(QFile::ReadWrite | QFile::NewOnly | QFile::Unbuffered, forTheUserAlone) ||
        file.write(contents) != contents.size())
        return refusal(m_path, file.errorString());
    if (!syncToDisk(file.handle()))
        return refusal(m_path, "the disk refused it");
    const bool isSame = file.seek(0) && file.readAll() == contents;
    return isSame ? QString() : refusal(m_path, "it did not read back as it was written");
}

/// Nothing is unsaved.
QString JournalFile::remove()
{
    m_pending.clear();
    if (!m_lock->isLocked())
        return {}; // no file was made
    m_size = -1;
    if (!QFile::remove(m_path) && QFile::exists(m_path))
        return QStringLiteral("The file %1 could not be removed.").arg(QDir::toNativeSeparators(m_path));
    syncFolder(folderOf(m_path));
    m_lock->unlock();
    return {};
}

} // namespace varnow
