#pragma once

#include <cstdint>
#include <optional>

namespace brackwater {

/// Local time in the Gregorian calendar, with the change from the Julian one in October 1582. The year counts
/// continuously (0 is 1 BC). Out-of-range fields carry over in the conversion to an instant.
struct CivilTime {
    std::int64_t year = 1;
    std::int64_t month = 1;
    std::int64_t day = 1;
    std::int64_t hour = 0;
    std::int64_t minute = 0;
    std::int64_t second = 0;

    friend bool operator==(const CivilTime&, const CivilTime&) = default;
};

/// The seconds from 1970-01-01T00:00:00 to a local time, as if every day had 86400. Nothing if the result is beyond
/// kLastWallSecond in either direction, or a single field is larger than any date needs.
[[nodiscard]] std::optional<std::int64_t> wallSecondsFromCivilTime(const CivilTime& time) noexcept;
/// The inverse; seconds are limited to kLastWallSecond.
[[nodiscard]] CivilTime civilTimeFromWallSeconds(std::int64_t seconds) noexcept;

/// About 5.8 million years; anything further away is not a date.
inline constexpr std::int64_t kLastWallSecond = 183'000'000'000'000;

inline constexpr std::int64_t kSecondsOfCivilDay = 86400;

/// Division rounded towards negative infinity, and its remainder (never negative); `divisor` is above 0.
constexpr std::int64_t floorDivide(std::int64_t dividend, std::int64_t divisor) noexcept {
    return dividend / divisor - (dividend % divisor < 0 ? 1 : 0);
}
constexpr std::int64_t floorRemainder(std::int64_t dividend, std::int64_t divisor) noexcept {
    return dividend - floorDivide(dividend, divisor) * divisor;
}

} // namespace brackwater
