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

QString questionAbout(const LeftChanges &left)
{
    const QDateTime time = left.time.toLocalTime();
    const QLocale locale;
    return QStringList{QStringLiteral("Varnow was ended with unsaved changes on %1 at %2:")
                           .arg(locale.toString(time.date(), QLocale::ShortFormat),
                                locale.toString(time.time(), QLocale::ShortFormat)),
                       "  Lines: " + countsOf(left.lines), "  Fields: " + countsOf(left.fields),
                       "Do you want to bring them back?"}
        .join(lineBreak);
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

/// Returns what could not be brought back, after telling the user so.
LeftChanges bringBack(const LeftChanges &left, Model &model)
{
    LeftChanges refused;
    {
        const Editing editing(model, QStringLiteral("bringing back of the changes of an earlier run"));
        refused = restore(left, model);
    }
    QStringList names = namesOf(refused.lines, "Line") + namesOf(refused.fields, "Field");
    if (names.isEmpty())
        return {};
    if (names.size() > namesShown)
        names = names.mid(0, namesShown) + QStringList("  …");
    ui::show(
        {.text = QStringList{"These records have changed in the database since, and stay as they are there:",
                             names.join(lineBreak),
                             "The window 'Unsaved Changes' (Ctrl+U) lists them and can take them over."}
                     .join(lineBreak),
         .title = "Unsaved Changes",
         .icon = ui::Icon::Information});
    return refused;
}

/// The changes in a file; nothing after telling the user why it cannot be read.
std::optional<LeftChanges> changesIn(LeftFile &file)
{
    using Changes = std::optional<LeftChanges>;
    return guarded([&]() -> Changes { return file.read(); },
                   [&](const RuntimeError &error) -> Changes {
                       const QString aside = file.putAside();
                       ui::show({QStringList{"The unsaved changes of an earlier run could not be read:",
                                             error.description(), "They are kept in " + aside}
                                     .join(lineBreak),
                                 "Unsaved Changes", ui::Icon::Critical});
                       return {};
                   });
}

} // namespace

SettledChanges offerLeftChanges(const db::ConnectionSettings &database, Model &model)
{
    SettledChanges settled;
    for (LeftFile &file : LeftFile::findAll(database)) {
        const std::optional<LeftChanges> left = changesIn(file);
        if (!left)
            continue;
        const ui::Answer answer =
            ui::show({questionAbout(*left), "Unsaved Changes", ui::Icon::Question, ui::Buttons::YesNoCancel});
        if (answer == ui::Answer::Yes) {
            const LeftChanges refused = bringBack(*left, model);
            settled.conflicts.lines.insert(settled.conflicts.lines.end(), refused.lines.begin(),
                                           refused.lines.end());
            settled.conflicts.fields.insert(settled.conflicts.fields.end(), refused.fields.begin(),
                                            refused.fields.end());
        }
        if (answer != ui::Answer::Cancel)
            settled.files.push_back(std::move(file));
    }
    return settled;
}

} // namespace varnow
