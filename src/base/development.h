#pragma once

namespace varnow {

/// True in a development run (CMake preset `dev`), false in the built program.
#ifdef VARNOW_DEVELOPMENT
inline constexpr bool isDevelopmentRun = true;
#else
inline constexpr bool isDevelopmentRun = false;
#endif

} // namespace varnow
