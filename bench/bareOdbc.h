#pragma once

#include "db/ConnectionSettings.h"

#include <string>

namespace varnow::bench {

/// The connection string that the program makes of these settings, in ODBC's terms.
std::string odbcConnectionString(const db::ConnectionSettings &settings);

/// What a program without any layer does: connects, runs a statement, fetches every column of every row
/// into one buffer, and disconnects. Ends the program on an error.
void runBare(const std::string &connectionString, const std::string &statement);

} // namespace varnow::bench
