#pragma once

namespace varnow {

/// True in the built program, false in a development run (CMake preset `dev`).
bool IsCompiled();

} // namespace varnow
