#pragma once

#include "Platform/Time/TimeZone.h"
#include "mppinspect/Values.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace brackwater::lossreport {

/// A local time in the plan's zone, in seconds since 1983-12-31T00:00:00.
struct WallTime {
    std::int64_t seconds = 0;
    bool isRepeated = false; ///< occurs twice, since the clocks were set back
    bool isDaylightTime = false;

    [[nodiscard]] std::int64_t day() const noexcept;
    [[nodiscard]] std::int64_t secondOfDay() const noexcept;
    /// Whether the format can store it.
    [[nodiscard]] bool isInRange() const noexcept;
    /// "2026-03-02 08:00"; with seconds unless they are 0.
    [[nodiscard]] std::string text() const;
};

[[nodiscard]] WallTime wallTimeOf(const inspect::Date& date);

/// Converts the date-times of documents to local time in a time zone.
class WallClock {
public:
    WallClock() : _zone(TimeZone::system()) {}

    /// Nothing if the text is not a date-time. A text without a zone is local time.
    [[nodiscard]] std::optional<WallTime> read(std::string_view text) const;

private:
    TimeZone _zone;
};

} // namespace brackwater::lossreport
