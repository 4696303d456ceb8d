#pragma once

#include <QString>

namespace varnow {

/// The folder with what comes with the program, `sql` and `docs` in it: that of the installation, or the
/// source tree for a program that runs where it was built. Empty when there is neither.
QString dataFolder();

/// The folder for what the program keeps of the user's work. Whoever writes to it makes it.
QString stateFolder();

} // namespace varnow
