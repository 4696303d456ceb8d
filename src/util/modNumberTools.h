#pragma once

namespace varnow {

/// Adds one to the value and returns the new value.
template <class Number> Number Increment(Number &value)
{
    return value = static_cast<Number>(value + 1);
}

} // namespace varnow
