#pragma once

namespace varnow {

/// Sees to it, where the system can, that no core file of this process is ever written: it would hold
/// passwords.
void forbidCoreFiles();

} // namespace varnow
