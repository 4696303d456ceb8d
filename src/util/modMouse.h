#pragma once

namespace varnow {

/// Sets the pointer shown over all windows: 0 the default one, 11 the hourglass.
void SetMousePointer(int pointer);

} // namespace varnow
