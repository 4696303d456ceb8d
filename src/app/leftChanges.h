#pragma once

#include "model/Model.h"
#include "storage/recovery.h"

#include <vector>

namespace varnow {

/// What the user decided about the changes that earlier runs have left.
struct SettledChanges
{
    std::vector<LeftFile> files;   ///< to be dropped when what was brought back is safe
    std::vector<PageDraft> drafts; ///< typed entries to be offered on their pages
    LeftChanges conflicts;         ///< not brought back, since their records have changed in the database
};

/// Offers what earlier runs have left unsaved, and brings it into memory, as a step that can be undone, where
/// the user wants it.
SettledChanges offerLeftChanges(const db::ConnectionSettings &database, Model &model);

} // namespace varnow
