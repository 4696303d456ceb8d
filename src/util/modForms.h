#pragma once

namespace varnow {

/// Unloads every loaded window, one after the other, each with its own handlers.
void UnloadAllForms();

} // namespace varnow
