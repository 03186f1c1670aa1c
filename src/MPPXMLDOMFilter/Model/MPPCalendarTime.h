#pragma once

#include <cstdint>

namespace brackwater {

/// A time of day in minutes precision. Both setters guard their value.
class MPPCalendarTime {
public:
    [[nodiscard]] std::uint8_t hours() const noexcept { return _hours; }
    [[nodiscard]] std::uint8_t minutes() const noexcept { return _minutes; }
    /// Stores 0 for a value above 23: 24:00, the end of the day, is 00:00 in the format.
    void setHours(std::uint8_t hours) noexcept { _hours = hours > 23 ? std::uint8_t{0} : hours; }
    /// Stores 59 for a value above 59.
    void setMinutes(std::uint8_t minutes) noexcept { _minutes = minutes > 59 ? std::uint8_t{59} : minutes; }

private:
    std::uint8_t _hours = 0;
    std::uint8_t _minutes = 0;
};

} // namespace brackwater
