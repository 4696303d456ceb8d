#pragma once

#include "lines/RecordTable.h"
#include "util/modMsgbox.h"
#include "util/modProgress.h"

#include <QSet>
#include <QString>

#include <utility>
#include <vector>

// The runs over all records that both stores share: saving, deleting, learning identifiers.

namespace varnow {

/// Shows a run's summary: its title, the number of errors, the number of records without one.
void showRunSummary(const QString &title, int errorCount, int recordCount);

/// Calls `step` for every record and returns how many did not go well. Records that come after the user
/// stopped the run did not.
template <class Records, class Step> int countErrors(Records &records, const QString &what, Step step)
{
    Progress progress(what, static_cast<int>(records.size()));
    int errorCount = 0;
    for (auto &record : records) {
        if (!progress.step() || step(record) != 0)
            ++errorCount;
    }
    return errorCount;
}

/// What a run does, for the user who waits, and the title of its summary.
struct RunTexts
{
    QString what;
    QString title;
};

/// Runs `step` over every record, shows the summary and returns the number of errors.
template <class Records, class Step> int runOver(Records &records, const RunTexts &texts, Step step)
{
    const int errorCount = countErrors(records, texts.what, step);
    showRunSummary(texts.title, errorCount, static_cast<int>(records.size()));
    return errorCount;
}

/// The deletion run: does nothing without removed records, and forgets them when all went well. Otherwise
/// all stay for the next run. A deleted row's identifier is forgotten at once, by the removed record and by
/// one that a reload has put back into the table, for another row may get it next.
template <class Record, class Step>
void deleteAll(std::vector<Record> &removed, RecordTable<Record> &table, const RunTexts &texts, Step step)
{
    if (removed.empty())
        return;
    QSet<int> deleted;
    const auto deleteOne = [&](Record &record) {
        const int result = step(record);
        if (result == 0)
            deleted.insert(std::exchange(record.id, -1));
        return result;
    };
    if (runOver(removed, texts, deleteOne) == 0)
        removed.clear();
    table.changeEach([&](Record &record) {
        if (deleted.contains(record.id))
            record.id = -1;
    });
}

/// The save run: without records it only says so.
template <class Records, class Step> void saveAll(const Records &records, const RunTexts &texts, Step step)
{
    if (records.isEmpty())
        ShowMessage(QStringLiteral("No records found to process."));
    else
        runOver(records, texts, step);
}

/// Gives every record that has no database identifier yet (0 or -1) the one that `lookUp` finds, if any.
template <class Table, class LookUp> void adoptIds(Table &records, const QString &what, LookUp lookUp)
{
    Progress progress(what, records.size());
    records.changeEach([&](auto &record) {
        if (!progress.step() || record.id > 0)
            return;
        if (const int id = lookUp(record); id > 0)
            record.id = id;
    });
}

} // namespace varnow
