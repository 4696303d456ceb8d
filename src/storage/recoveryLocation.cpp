#include "storage/recoveryLocation.h"

#include <QCryptographicHash>
#include <QFileInfo>

namespace varnow {

namespace {

QString prefixFor(const QString &server, const QString &database)
{
    const QByteArray text = (server + u'\n' + database).toUtf8();
    const QByteArray hash = QCryptographicHash::hash(text, QCryptographicHash::Sha256);
    return QString::fromLatin1(hash.toHex().left(16)) + u'-';
}

/// One text for all paths that lead to a file. It need not be there.
QString canonicalPath(const QString &path)
{
    const QFileInfo file(path);
    if (QString canonical = file.canonicalFilePath(); !canonical.isEmpty())
        return canonical;
    const QString folder = QFileInfo(file.absolutePath()).canonicalFilePath();
    return folder.isEmpty() ? file.absoluteFilePath() : folder + u'/' + file.fileName();
}

} // namespace

QString recoveryPrefix(const db::ConnectionSettings &database)
{
    const db::ConnectionSettings names = database.trimmed();
    switch (names.dialect()) {
    case db::Dialect::Sqlite:
        return prefixFor(names.server.toCaseFolded(), canonicalPath(names.database));
    case db::Dialect::SqlServer:
        break;
    }
    return prefixFor(names.server.toCaseFolded(), names.database.toCaseFolded());
}

QString earlierRecoveryPrefix(const db::ConnectionSettings &database)
{
    const db::ConnectionSettings names = database.trimmed();
    return prefixFor(names.server, names.database);
}

std::unique_ptr<QLockFile> recoveryLock(const QString &path)
{
    auto lock = std::make_unique<QLockFile>(path + ".lock");
    lock->setStaleLockTime(0); // only a program that is gone leaves a stale one
    return lock;
}

} // namespace varnow
