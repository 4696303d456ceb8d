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

/// The rows that share the key of another one or stand under another line than the record in memory, so that
/// a save passes them by, and those without a name index or line index, which no save finds. Those that wait
/// for deletion are left out. Raises the provider's error code, the error of a key that is no number, and
/// errors::UserInterrupt when the user stopped it.
std::vector<RowIssue> findRowIssues(Run &run, const Model &model);

/// Lets the row of a issue with the fix RemoveAtNextSave wait for deletion. To be called within an
/// edit.
void removeAtNextSave(Model &model, const RowIssue &found);

/// Whether the database tells the names of records apart by letter case. Raises the provider's error code.
bool tellsLetterCaseApart(Run &run);

} // namespace varnow
