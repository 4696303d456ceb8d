#pragma once

#include "model/Model.h"
#include "model/RecordReference.h"

#include <vector>

namespace varnow {

/// The records of a configuration that hold a text, in the order of the tree; those that it does not show
/// come last. Looks, whatever the letter case, at the name with its index, at the message index with the
/// position
/// ("3.1"), and at a field's line with its index, lookup, format and constant. An empty text is nowhere.
std::vector<RecordReference> search(const Model &model, const QString &configuration, const QString &text);

} // namespace varnow
