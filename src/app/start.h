#pragma once

#include "storage/Session.h"

#include <QString>

namespace varnow {

/// Exit codes of the program.
namespace exitCodes {
inline constexpr int Success = 0;
inline constexpr int Failure = 1; ///< the start failed
inline constexpr int Usage = 2;   ///< the command line is incomplete
} // namespace exitCodes

/// The entry routine: takes the connection settings from the process arguments or the sign-in dialog, reads
/// the catalogue, and shows the editor until it is closed. Returns the exit code. The arguments are blanked.
int runProgram(int argc, char **argv);

/// The start on a running toolkit, for an argument text; `session` is filled on the way. Returns the exit
/// code.
int start(const QString &argumentText, Session &session);

} // namespace varnow
