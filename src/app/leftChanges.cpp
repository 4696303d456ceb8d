#include "app/leftChanges.h"

#include "base/guarded.h"
#include "base/text.h"
#include "editor/LineChoice.h"
#include "ui/MessageBox.h"

#include <QLocale>

#include <array>

namespace varnow {

namespace {

constexpr int namesShown = 20;

template <class Entries> QString countsOf(const Entries &entries)
{
    std::array<int, 3> counts{}; // added, changed, removed
    for (const auto &entry : entries)
        ++counts[!entry.before ? 0 : entry.now ? 1 : 2];
    return QStringLiteral("%1 added, %2 changed, %3 removed").arg(counts[0]).arg(counts[1]).arg(counts[2]);
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
        const auto &record = entry.now ? *entry.now : *entry.before;
        names += "  " + kind + ' ' + choiceOf(record.name, record.nameIndex) + " of " + record.configuration;
    }
    return names;
}

void bringBack(const LeftChanges &left, Model &model)
{
    LeftChanges refused;
    {
        const Editing editing(model);
        refused = restore(left, model);
    }
    QStringList names = namesOf(refused.lines, "Line") + namesOf(refused.fields, "Field");
    if (names.isEmpty())
        return;
    if (names.size() > namesShown)
        names = names.mid(0, namesShown) + QStringList("  …");
    ui::show({.text = "These records have changed in the database since, and stay as they are there:" +
                      lineBreak + names.join(lineBreak),
              .title = "Unsaved Changes",
              .icon = ui::Icon::Information});
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

std::vector<LeftFile> offerLeftChanges(const db::ConnectionSettings &database, Model &model)
{
    std::vector<LeftFile> settled;
    for (LeftFile &file : LeftFile::findAll(database)) {
        const std::optional<LeftChanges> left = changesIn(file);
        if (!left)
            continue;
        const ui::Answer answer =
            ui::show({questionAbout(*left), "Unsaved Changes", ui::Icon::Question, ui::Buttons::YesNoCancel});
        if (answer == ui::Answer::Yes)
            bringBack(*left, model);
        if (answer != ui::Answer::Cancel)
            settled.push_back(std::move(file));
    }
    return settled;
}

} // namespace varnow
