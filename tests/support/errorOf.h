#pragma once

#include "base/RuntimeError.h"

namespace varnow::test {

/// The number of the error that a body ends with, 0 without one.
template <class Body> int errorOf(Body body)
{
    try {
        body();
        return 0;
    } catch (const RuntimeError &error) {
        return error.number();
    }
}

} // namespace varnow::test
