#pragma once

#include "model/Model.h"
#include "storage/LeftChanges.h"

// What is unsaved is kept in a file, so that neither a crash nor a power cut loses it. The files stand in the
// folder "varnow" of the user's state folder, one for each database and running program, for the user alone.
// They hold no password.

namespace varnow {

/// Puts left changes into memory. A record that has changed in the database meanwhile keeps what is there;
/// these changes are returned.
LeftChanges restore(const LeftChanges &changes, Model &model);

} // namespace varnow
