#include "transfer/importFiles.h"

#include "base/text.h"
#include "transfer/ImportWindow.h"
#include "ui/Application.h"

namespace varnow {

namespace {

QString configurationOf(const FileRow &row)
{
    return std::visit([](const auto &record) { return record.configuration; }, row.record);
}

/// The configuration to show after an import: the one shown, unless all went into others.
QString configurationAfter(const ImportPlan &plan, const QString &shown)
{
    QString first;
    for (const FileRow &row : plan.rows) {
        if (row.outcome != RowOutcome::Added && row.outcome != RowOutcome::Changed)
            continue;
        if (configurationOf(row) == shown)
            return shown;
        if (first.isEmpty())
            first = configurationOf(row);
    }
    return first;
}

QString sentenceOf(const ImportPlan &plan)
{
    const int refused = plan.count(RowOutcome::Refused);
    const QString sentence = QStringLiteral("Imported: %1 added, %2 changed; not saved yet.")
                                 .arg(plan.count(RowOutcome::Added))
                                 .arg(plan.count(RowOutcome::Changed));
    return refused == 0
               ? sentence
               : sentence + ' ' + counted(refused, "row") + (refused == 1 ? " was" : " were") + " refused.";
}

} // namespace

std::optional<QString> importFiles(Document &document, const QStringList &paths)
{
    const std::optional<ImportPlan> plan = ImportWindow(document).ask(paths);
    if (!plan)
        return {};
    const ui::Hourglass hourglass;
    const int count = plan->count(RowOutcome::Added) + plan->count(RowOutcome::Changed);
    document.edit({"import of " + counted(count, "record"), sentenceOf(*plan)},
                  [&](Edit &edit) { apply(*plan, edit.model()); });
    return configurationAfter(*plan, document.configuration());
}

} // namespace varnow
