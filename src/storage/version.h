#pragma once

#include <QString>

namespace varnow {

/// The version of the program and of what it stands on, one to a line: Qt, ODBC's driver manager and the
/// registered drivers with their files. What a report of a fault should begin with.
QString versionText();

} // namespace varnow
