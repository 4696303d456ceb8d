#pragma once

#include <QString>
#include <QStringList>

#include <cstddef>
#include <optional>
#include <vector>

namespace varnow::ui {

/// Files of one kind.
struct FileKind
{
    QString caption; ///< "CSV files"
    QString ending;  ///< of their names, without the dot, in lower case
};

/// Asks for files of a kind to read. Returns their paths, none when the user wants none.
QStringList askForFiles(const QString &title, const FileKind &kind);

/// A file to write.
struct NewFile
{
    QString path;
    std::size_t kind = 0; ///< index into the kinds: what the path ends with, else what was chosen
};

/// Asks for a file to write, of any of these kinds; whether an existing one may be replaced is asked, too. A
/// name that ends like none of them gets the ending of the chosen one. `name`: what is proposed, without an
/// ending. Returns nothing when the user wants none.
std::optional<NewFile> askForNewFile(const QString &title, const QString &name,
                                     const std::vector<FileKind> &kinds);

} // namespace varnow::ui
