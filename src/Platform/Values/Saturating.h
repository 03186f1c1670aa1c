#pragma once

#include <cmath>
#include <limits>
#include <type_traits>

namespace brackwater {

/// Truncates a double to an integer type. An out-of-range value gives the nearest limit, NaN gives 0. Every conversion
/// of a double to an integer in the system uses this function.
template <typename Integer>
[[nodiscard]] Integer saturatingCut(double value) noexcept {
    static_assert(std::is_integral_v<Integer>);
    if (std::isnan(value))
        return 0;
    // The limits as doubles: for a type of more than 53 bits the upper one is rounded up to a power of two, so it is
    // compared with >=.
    constexpr double lowest = static_cast<double>(std::numeric_limits<Integer>::min());
    constexpr Integer halfBeyond = std::numeric_limits<Integer>::max() / 2 + 1;
    constexpr double beyond = static_cast<double>(halfBeyond) * 2.0;
    if (value >= beyond)
        return std::numeric_limits<Integer>::max();
    if (value <= lowest)
        return std::numeric_limits<Integer>::min();
    return static_cast<Integer>(value);
}

} // namespace brackwater
