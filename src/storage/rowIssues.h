#pragma once

#include "model/Model.h"
#include "model/issues.h"
#include "storage/Run.h"

#include <variant>
#include <vector>

// What only the database tells about its rows.

namespace varnow {

/// A row to put right.
struct RowIssue
{
    Issue issue;
    std::variant<Line, Field> row; ///< its identifier and key, for that is all that was read
    int keptId = 0;                ///< of the row that stays for the same record; 0 without one
};

/// Finds rows that a save does not write: rows with the same key as another row, rows under another line than
/// their record in memory, and rows without a name index or line index. Rows that the next save deletes are
/// left out. Raises the provider's error code, the error of a key that is no number, and
/// errors::UserInterrupt when the user stopped it.
std::vector<RowIssue> findRowIssues(Run &run, const Model &model);

/// Makes the next save delete the row of an issue whose fix is RemoveAtNextSave. To be called within an
/// edit.
void removeAtNextSave(Model &model, const RowIssue &found);

/// Whether the database tells the names of records apart by letter case. Raises the provider's error code.
bool tellsLetterCaseApart(Run &run);

} // namespace varnow
