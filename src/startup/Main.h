#pragma once

#include <QString>

namespace varnow {

/// The entry routine: takes the connection values from the process arguments or the login dialog, reads the
/// catalogue, and shows the editor until it is closed. Returns the exit code: 0, 1 when the start failed,
/// 2 when the command line is incomplete. The arguments are blanked, so that nobody reads a password in the
/// process list.
int Main(int argc, char **argv);

/// The start-up sequence on a running toolkit, for an argument text. Returns the exit code.
int startUp(const QString &argumentText);

} // namespace varnow
