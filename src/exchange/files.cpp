#include "exchange/files.h"

#include "base/syncToDisk.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace varnow {

namespace {

constexpr qint64 megabyte = 1'048'576;
constexpr qint64 mostMegabytes = 32; // a hundred thousand fields take half of it

} // namespace

FileContents readFile(const QString &path)
{
    const QString shown = QDir::toNativeSeparators(path);
    const auto refusal = [&](const QString &why) {
        return FileContents{{}, QStringLiteral("The file %1 could not be read: %2").arg(shown, why)};
    };
    if (QFileInfo(path).isDir())
        return refusal("It is a folder.");
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return refusal(file.errorString() + u'.');
    FileContents contents{file.read(mostMegabytes * megabyte + 1), {}};
    if (contents.bytes.size() > mostMegabytes * megabyte)
        return refusal(QStringLiteral("It is larger than %1 MB.").arg(mostMegabytes));
    if (file.error() != QFileDevice::NoError)
        return refusal(file.errorString() + u'.');
    return contents;
}

QString writeFile(const QString &path, const QByteArray &contents)
{
    QSaveFile file(path);
    // commit() does not see what a full disk refuses, and puts the rest in place.
    if (file.open(QIODevice::WriteOnly) && file.write(contents) == contents.size() && file.flush() &&
        syncToDisk(file.handle()) && file.commit())
        return {};
    return QStringLiteral("The file %1 could not be written: %2.")
        .arg(QDir::toNativeSeparators(path), file.errorString());
}

} // namespace varnow
