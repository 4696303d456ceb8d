#include "ui/fileDialogs.h"

#include "base/text.h"
#include "ui/Application.h"
#include "ui/MessageBox.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

#include <algorithm>

namespace varnow::ui {

namespace {

QString filterOf(const FileKind &kind)
{
    return QStringLiteral("%1 (*.%2)").arg(kind.caption, kind.ending);
}

/// The name without what file systems do not take, or take for something else.
QString fileName(QString name)
{
    constexpr int longest = 60; // characters, of which each takes up to four of the 255 bytes there are
    name.truncate(longest);
    const auto isBad = [](QChar c) { return c < u' ' || QStringView(u"/\\:*?\"<>|").contains(c); };
    std::ranges::replace_if(name, isBad, u'_');
    return name.startsWith(u'.') ? u'_' + name : name;
}

/// The file as the kind that its name tells; a name that tells none gets the ending of the chosen kind.
NewFile withEnding(const QString &path, const std::vector<FileKind> &kinds, qsizetype chosen)
{
    const auto named = std::ranges::find_if(
        kinds, [&](const FileKind &kind) { return path.endsWith(u'.' + kind.ending, Qt::CaseInsensitive); });
    if (named != kinds.end())
        return {path, static_cast<std::size_t>(named - kinds.begin())};
    const auto kind = static_cast<std::size_t>(chosen);
    return {path + u'.' + kinds[kind].ending, kind};
}

} // namespace

QStringList askForFiles(const QString &title, const FileKind &kind)
{
    QFileDialog dialog(QApplication::activeWindow(), title);
    dialog.setFileMode(QFileDialog::ExistingFiles);
    dialog.setNameFilters({filterOf(kind), QStringLiteral("All files (*)")});
    const Hourglass::Paused waitsForTheUser;
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles() : QStringList();
}

std::optional<NewFile> askForNewFile(const QString &title, const QString &name,
                                     const std::vector<FileKind> &kinds)
{
    QFileDialog dialog(QApplication::activeWindow(), title);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setOption(QFileDialog::DontConfirmOverwrite); // it would ask before the name has its ending
    QStringList filters;
    for (const FileKind &kind : kinds)
        filters += filterOf(kind);
    dialog.setNameFilters(filters);
    dialog.selectFile(fileName(name));
    const Hourglass::Paused waitsForTheUser;
    while (dialog.exec() == QDialog::Accepted) {
        const NewFile file = withEnding(dialog.selectedFiles().constFirst(), kinds,
                                        std::max<qsizetype>(0, filters.indexOf(dialog.selectedNameFilter())));
        if (!QFileInfo::exists(file.path) ||
            askYesNo("The file " + QDir::toNativeSeparators(file.path) + " exists already." + lineBreak +
                         "Do you want to replace it?",
                     title))
            return file;
    }
    return std::nullopt;
}

} // namespace varnow::ui
