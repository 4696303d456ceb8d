#pragma once

#include "base/RuntimeError.h"

#include <new>

namespace varnow {

/// Runs `body`, which returns a result. A run-time error goes to `trap`, whose result is returned instead.
/// Running out of memory counts as errors::OutOfMemory.
template <class Body, class Trap> auto guarded(Body body, Trap trap) -> decltype(body())
{
    try {
        return body();
    } catch (const RuntimeError &error) {
        return trap(error);
    } catch (const std::bad_alloc &) {
        return trap(RuntimeError(errors::OutOfMemory));
    }
}

} // namespace varnow
