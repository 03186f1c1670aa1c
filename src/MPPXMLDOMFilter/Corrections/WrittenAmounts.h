#pragma once

#include "Platform/Values/Saturating.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace brackwater {

/// Seconds in the steps of a row, tenths of a minute: parts that are made of such steps make up the whole there too.
[[nodiscard]] inline double durationInSteps(double seconds) {
    constexpr double kStep = 6.0;
    return saturatingCut<std::int32_t>(seconds / kStep) * kStep;
}

/// A fraction as a whole percentage, rounded; 100 only where all is done.
[[nodiscard]] inline std::uint64_t wholePercent(double fraction) {
    if (fraction >= 1)
        return 100;
    return std::min<std::uint64_t>(saturatingCut<std::uint64_t>(std::floor(fraction * 100.0 + 0.5)), 99);
}

} // namespace brackwater
