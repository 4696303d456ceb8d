#pragma once

#include "util/modMsgbox.h"

#include <QString>

// The saving and the deletion run that both stores share.

namespace varnow {

/// Shows a run's summary: its title, the number of errors, the number of records without one.
void showRunSummary(const QString &title, int errorCount, int recordCount);

/// Calls `step` for every record, counts its nonzero results, shows the summary and returns the count.
template <class Records, class Step> int runOver(const Records &records, const QString &title, Step step)
{
    int errorCount = 0;
    for (const auto &record : records) {
        if (step(record) != 0)
            ++errorCount;
    }
    showRunSummary(title, errorCount, static_cast<int>(records.size()));
    return errorCount;
}

/// The deletion run: does nothing without records, and forgets them when all went well.
template <class Records, class Step> void deleteAll(Records &removed, const QString &title, Step step)
{
    if (!removed.empty() && runOver(removed, title, step) == 0)
        removed.clear();
}

/// The save run: without records it only says so.
template <class Records, class Step> void saveAll(const Records &records, const QString &title, Step step)
{
    if (records.isEmpty())
        ShowMessage(QStringLiteral("No records found to process."));
    else
        runOver(records, title, step);
}

} // namespace varnow
