#pragma once

#include "model/Model.h"

namespace varnow {

/// How the removal of a line ended. When a following step failed, the line is removed all the same.
enum class LineRemoval {
    HasFields, ///< nothing was removed
    NotFound,
    RenumberingFailed,           ///< the other lines may have kept their message indexes
    CopyingMessageIndexesFailed, ///< some fields may have kept theirs
    Done,
};

/// Removes a line that no field belongs to, numbers the other lines of its configuration again and gives the
/// fields the message indexes of their lines. A line with a name index below 1 owns the fields of every line
/// index that name it.
LineRemoval removeLine(Model &model, const RecordKey &line);

/// Removes a field. Returns false when there is none with this key; a blank configuration or name is none.
bool removeField(Model &model, const RecordKey &field);

} // namespace varnow
