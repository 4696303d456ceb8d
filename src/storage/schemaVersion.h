#pragma once

#include "db/ConnectionSettings.h"

namespace varnow {

/// The two databases that take part.
enum class DatabaseRole {
    Configuration, ///< holds everything that the program edits
    Velmora,       ///< the main application's
};

/// How the schema version that a database records compares with the one that this build requires.
struct SchemaVersionCheck
{
    enum class Verdict {
        Earlier, ///< also when it is Null or could not be read
        Exact,
        Newer,
    };

    Verdict verdict = Verdict::Earlier;
    int errorNumber = 0;      ///< what stopped the reading, where the user is to learn it; else 0
    bool isConnected = false; ///< the database took the log-in
};

/// Reads and judges the version. An error number is reported when the version is missing or no number, and
/// for the configuration database also when it cannot be reached.
SchemaVersionCheck checkSchemaVersion(const db::ConnectionSettings &database, DatabaseRole role);

} // namespace varnow
