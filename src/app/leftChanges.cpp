#include "app/leftChanges.h"

#include "base/guarded.h"
#include "base/names.h"
#include "base/text.h"
#include "model/RecordReference.h"
#include "ui/MessageBox.h"

#include <QLocale>

namespace varnow {

namespace {

constexpr int namesShown = 20;

template <class Entries> QString countsOf(const Entries &entries)
{
    ChangeCounts counts;
    for (const auto &entry : entries)
        counts.add(entry.kind());
    return counts.text();
}

QString questionAbout(const LeftChanges &left, const LeftFile &file)
{
    const QDateTime time = left.time.toLocalTime();
    const QLocale locale;
    QStringList lines{QStringLiteral("Varnow was ended with unsaved changes on %1 at %2:")
                          .arg(locale.toString(time.date(), QLocale::ShortFormat),
                               locale.toString(time.time(), QLocale::ShortFormat)),
                      "  Lines: " + countsOf(left.lines), "  Fields: " + countsOf(left.fields)};
    if (!left.drafts.empty())
        lines += "  Typed, but not taken by Change: on " + counted(qint64(left.drafts.size()), "page");
    if (left.damagedParts > 0)
        lines += QStringList{"Others could not be read: the file is damaged in " +
                                 counted(left.damagedParts, "place") + '.',
                             "It will be kept in " + file.asidePath()};
    return (lines + QStringList("Do you want to bring them back?")).join(lineBreak);
}

template <class Entries> QStringList namesOf(const Entries &entries, const QString &kind)
{
    QStringList names;
    for (const auto &entry : entries) {
        const auto &record = entry.record();
        names += "  " + kind + ' ' + isolated(nameOf(record.name, record.nameIndex)) + " of " +
                 isolated(record.configuration);
    }
    return names;
}

/// Brings the changes back, and tells the user what could not be.
void bringBack(const LeftChanges &left, Document &document)
{
    const LeftChanges refused = document.restore(left);
    QStringList names = namesOf(refused.lines, "Line") + namesOf(refused.fields, "Field");
    if (names.isEmpty())
        return;
    if (names.size() > namesShown)
        names = names.mid(0, namesShown) + QStringList("  …");
    ui::show(
        {.text = QStringList{"These records have changed in the database since, and stay as they are there:",
                             names.join(lineBreak),
                             "The window 'Unsaved Changes' (Ctrl+U) lists them and can take them over."}
                     .join(lineBreak),
         .title = "Unsaved Changes",
         .icon = ui::Icon::Information});
}

/// The changes in a file; nothing after telling the user why it cannot be read.
std::optional<LeftChanges> changesIn(LeftFile &file)
{
    using Changes = std::optional<LeftChanges>;
    return guarded([&]() -> Changes { return file.read(); },
                   [&](const RuntimeError &error) -> Changes {
                       const bool isAside = file.putAside();
                       ui::show({QStringList{"The unsaved changes of an earlier run could not be read:",
                                             error.description(),
                                             "They are kept in " + (isAside ? file.asidePath() : file.path())}
                                     .join(lineBreak),
                                 "Unsaved Changes", ui::Icon::Critical});
                       return {};
                   });
}

} // namespace

std::vector<LeftFile> offerLeftChanges(Document &document)
{
    std::vector<LeftFile> settled;
    for (LeftFile &file : LeftFile::findAll(document.session().configurationDatabase)) {
        const std::optional<LeftChanges> left = changesIn(file);
        if (!left)
            continue;
        if (left->isEmpty() && left->damagedParts == 0) {
            file.remove(); // all had become as in the database again
            continue;
        }
        const ui::Answer answer = ui::show(
            {questionAbout(*left, file), "Unsaved Changes", ui::Icon::Question, ui::Buttons::YesNoCancel});
        if (answer == ui::Answer::Yes)
            bringBack(*left, document);
        if (answer != ui::Answer::Cancel)
            settled.push_back(std::move(file));
    }
    return settled;
}

} // namespace varnow
