#pragma once

#include "model/Field.h"
#include "model/Line.h"
#include "model/RecordReference.h"

namespace varnow {

/// A record in a list of both kinds.
inline QString recordText(const Line &line)
{
    return "Line " + shownName(line);
}

inline QString recordText(const Field &field)
{
    return "Field " + shownName(field) + " of " + shownName(field.line, field.lineIndex);
}

} // namespace varnow
