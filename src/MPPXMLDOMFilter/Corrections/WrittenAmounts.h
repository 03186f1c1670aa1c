#pragma once

#include "Platform/Values/Saturating.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace brackwater {

/// Seconds rounded to the unit of a row, a tenth of a minute, so that parts add up to the whole in the file too.
[[nodiscard]] inline double durationInSteps(double seconds) {
    constexpr double kStep = 6.0;
    return saturatingCut<std::int32_t>(seconds / kStep) * kStep;
}

/// A fraction as a whole percentage, rounded; 100 only if all is done.
[[nodiscard]] inline std::uint64_t wholePercent(double fraction) {
    if (fraction >= 1)
        return 100;
    return std::min<std::uint64_t>(saturatingCut<std::uint64_t>(std::floor(fraction * 100.0 + 0.5)), 99);
}

} // namespace brackwater
