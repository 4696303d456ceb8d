#pragma once

#include "document/Document.h"
#include "storage/LeftFile.h"

#include <vector>

namespace varnow {

/// Offers what earlier runs have left unsaved, and brings it into memory, as a step that can be undone, where
/// the user wants it. Returns the files that are to be dropped when what was brought back is safe.
std::vector<LeftFile> offerLeftChanges(Document &document);

} // namespace varnow
