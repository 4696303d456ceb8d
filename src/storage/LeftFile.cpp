#include "storage/LeftFile.h"

#include "base/RuntimeError.h"
#include "base/folders.h"
#include "base/syncToDisk.h"
#include "storage/journalFormat.h"
#include "storage/recoveryLocation.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUuid>

namespace varnow {

namespace {

/// Removes what stands beside a journal whose program was ended while it wrote that anew, or for the first
/// time.
void tidyBeside(const QString &journal)
{
    const std::unique_ptr<QLockFile> lock = recoveryLock(journal);
    if (lock->tryLock(0))
        QFile::remove(journal + ".new");
}

} // namespace

LeftFile::LeftFile(const QString &path, std::unique_ptr<QLockFile> lock)
    : m_path(path)
    , m_asidePath(path + u'.' + QUuid::createUuid().toString(QUuid::Id128) + ".unreadable")
    , m_lock(std::move(lock))
{
}

std::vector<LeftFile> LeftFile::findAll(const db::ConnectionSettings &database)
{
    std::vector<LeftFile> found;
    const QDir folder(stateFolder());
    const QString prefix = recoveryPrefix(database);
    const QString earlierPrefix = earlierRecoveryPrefix(database);
    const QStringList names = folder.entryList(QDir::Files, QDir::Time); // a pattern would slow every start
    for (const QString &name : names) {
        if (name.startsWith(prefix) && (name.endsWith(".journal.new") || name.endsWith(".journal.lock")))
            tidyBeside(folder.filePath(name.section(u'.', 0, 1)));
        const bool isJournal = name.startsWith(prefix) && name.endsWith(".journal");
        const bool isEarlier = name.startsWith(earlierPrefix) && name.endsWith(".json");
        if (!isJournal && !isEarlier)
            continue;
        std::unique_ptr<QLockFile> lock = recoveryLock(folder.filePath(name));
        if (lock->tryLock(0) && QFile::exists(folder.filePath(name)))
            found.push_back(LeftFile(folder.filePath(name), std::move(lock)));
    }
    return found;
}

LeftChanges LeftFile::read()
{
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly))
        throw RuntimeError(errors::TypeMismatch, file.errorString());
    const QByteArray contents = file.readAll();
    LeftChanges changes = m_path.endsWith(".json") ? readFirstFormat(contents) : readJournal(contents);
    m_isDamaged = changes.damagedParts > 0;
    return changes;
}

void LeftFile::remove()
{
    if (m_isDamaged) {
        putAside();
        return;
    }
    QFile::remove(m_path);
    syncFolder(QFileInfo(m_path).path());
    m_lock->unlock();
}

bool LeftFile::putAside()
{
    const bool isRenamed = QFile::rename(m_path, m_asidePath);
    syncFolder(QFileInfo(m_path).path());
    m_lock->unlock();
    return isRenamed;
}

} // namespace varnow
