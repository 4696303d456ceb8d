#include "ui/fileDialogs.h"

#include "ui/Application.h"

#include <QApplication>
#include <QFileDialog>

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
    QStringList filters;
    for (const FileKind &kind : kinds)
        filters += filterOf(kind);
    dialog.setNameFilters(filters);
    const auto chosenKind = [&] {
        return static_cast<std::size_t>(std::max<qsizetype>(0, filters.indexOf(dialog.selectedNameFilter())));
    };
    const auto followKind = [&] { dialog.setDefaultSuffix(kinds[chosenKind()].ending); };
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, followKind);
    followKind();
    dialog.selectFile(fileName(name));
    const Hourglass::Paused waitsForTheUser;
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    const QString path = dialog.selectedFiles().constFirst();
    const auto named = std::ranges::find_if(
        kinds, [&](const FileKind &kind) { return path.endsWith(u'.' + kind.ending, Qt::CaseInsensitive); });
    const std::size_t kind =
        named == kinds.end() ? chosenKind() : static_cast<std::size_t>(named - kinds.begin());
    return NewFile{path, kind};
}

} // namespace varnow::ui
