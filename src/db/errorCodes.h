#pragma once

#include "db/codes.h"
#include "db/dialect.h"

#include <QString>

namespace varnow::db {

/// The code for one diagnostic record of a failed statement. The database's own number decides where it is
/// known, for the SQLSTATE is often coarser.
int errorCode(Dialect dialect, const QString &sqlState, int nativeError, const QString &message);

} // namespace varnow::db
