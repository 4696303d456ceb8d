#pragma once

#include <QByteArray>
#include <QString>

namespace varnow {

/// What was read from a file, or why it was not.
struct FileContents
{
    QByteArray bytes;
    QString problem; ///< as a sentence; empty when all went well
};

/// Reads a file to import. Too large a one is not read.
FileContents readFile(const QString &path);

/// Writes a file whole or not at all: after a failure an older one is as it was. Returns what went wrong as a
/// sentence, nothing when all went well.
QString writeFile(const QString &path, const QByteArray &contents);

} // namespace varnow
