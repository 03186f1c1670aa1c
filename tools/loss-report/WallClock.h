#pragma once

#include "Platform/Time/TimeZone.h"
#include "mppinspect/Values.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace brackwater::lossreport {

/// A moment on the wall clock of a plan, in seconds since 1983-12-31T00:00:00.
struct WallTime {
    std::int64_t seconds = 0;
    bool isRepeated = false; ///< the clock shows it twice, since it was set back
    bool isDaylightTime = false;

    [[nodiscard]] std::int64_t day() const noexcept;
    [[nodiscard]] std::int64_t secondOfDay() const noexcept;
    /// Whether the format can hold it.
    [[nodiscard]] bool isInRange() const noexcept;
    /// "2026-03-02 08:00"; seconds too where there are any.
    [[nodiscard]] std::string text() const;
};

[[nodiscard]] WallTime wallTimeOf(const inspect::Date& date);

/// Reads the date-times of documents on the wall clock of a time zone.
class WallClock {
public:
    WallClock() : _zone(TimeZone::system()) {}

    /// Nothing for a text that is no date-time. One without a zone is taken as a wall time.
    [[nodiscard]] std::optional<WallTime> read(std::string_view text) const;

private:
    TimeZone _zone;
};

} // namespace brackwater::lossreport
