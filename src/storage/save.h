#pragma once

#include "base/RunObserver.h"
#include "db/ConnectionSettings.h"
#include "model/Model.h"

// Writing the records back to the database, one statement after the other.

namespace varnow {

/// How a save ended.
struct SaveResult
{
    /// 0, also when single records failed; the number of an unexpected failure of the save of lines, which
    /// ends the whole, or of fields; errors::UserInterrupt when the user stopped it.
    int code = 0;
    int errorCount = 0; ///< records that failed, or came after the user stopped it
};

/// Deletes the rows of the removed lines, inserts or updates the row of every line, then the same for the
/// fields; each of the four runs shows its summary. A row to update is found by the record's key, a row to
/// delete by the identifier in memory. One failed record never stops a run.
SaveResult saveAll(const db::ConnectionSettings &database, Model &model, RunObserver &observer);

/// Gives every record without a known identifier (0 or -1) the one of its row, where it has one. Called after
/// a save.
void adoptIds(const db::ConnectionSettings &database, Model &model, RunObserver &observer);

} // namespace varnow
