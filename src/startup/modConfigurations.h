#pragma once

namespace varnow {

/// Reads the names of all configurations into gConfigNames; without rows, or when the query fails, they
/// stay as they are. Returns 0, or the number of the error that stopped the reading, after a message.
int LoadConfigNames();

/// Reads the default configuration into gDefaultConfigName, "Standard" with a message when there is none.
/// Always returns 0.
int LoadDefaultConfigName();

} // namespace varnow
