#pragma once

#include "db/ConnectionSettings.h"
#include "model/Model.h"
#include "storage/Run.h"

namespace varnow {

/// Loads the lines, then, when that went well, the fields. Lines are replaced by the rows of the database;
/// without rows they stay. Fields are merged with the rows by their key, so that fields held only in memory
/// stay; a failed query or one without rows only gives a message. What was removed stays so.
/// Returns 0, or the number of the error that stopped it.
int loadAll(const db::ConnectionSettings &database, Model &model, RunObserver &observer);

/// The same as the last part of a run, whose connection is closed behind it.
int loadAll(Run &run, Model &model);

} // namespace varnow
