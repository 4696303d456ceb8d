#pragma once

namespace varnow {

/// Compares the schema version that a database records with the one this build requires. `mode` 0 is the
/// configuration database, 1 the Velmora database. Returns -1 earlier, Null or unreadable, 0 equal, 1 newer.
/// `errorNumber` is written when there is an error number to report.
int CompareDatabaseVersion(int mode, int &errorNumber);

/// Judges the database of LoginState::DatabaseMode and reports an error number to the user. Returns
/// the verdict -1, 0 or 1, for the configuration database also the error number that stopped the reading.
int CheckDatabaseVersion();

} // namespace varnow
