#pragma once

#include "model/FieldTable.h"
#include "model/LineTable.h"

namespace varnow {

/// Everything that the editor edits: the lines and fields of all configurations.
struct Model
{
    LineTable lines;
    FieldTable fields;

    /// Copies every line's message index into its fields. Fields without a line keep theirs.
    void copyMessageIndexesToFields();
};

} // namespace varnow
