#pragma once

#include "model/Model.h"
#include "model/RecordReference.h"

#include <vector>

namespace varnow {

/// Finds the records of a configuration that contain a text, in upper or lower case. They come in the order
/// of the tree, those that the tree does not show at the end.
///
/// The text is looked for in the name with its index ("NTE(1)") and in the message index with the position
/// ("3.1"). In a field it is also looked for in the name and index of its line and in the texts that have a
/// caption: lookup, format and constant. An empty text is found nowhere.
std::vector<RecordReference> search(const Model &model, const QString &configuration, const QString &text);

} // namespace varnow
