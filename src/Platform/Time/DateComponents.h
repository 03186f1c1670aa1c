#pragma once

#include "Platform/Time/GregorianCalendar.h"

#include <cstdint>
#include <optional>
#include <string>

namespace brackwater {

/// Fields of a date, each of which may be unset. A bare year counts within its era: 1 BC is year 1.
struct DateComponents {
    std::optional<std::int64_t> era; ///< 0 is BC, 1 is AD; unset counts as AD
    std::optional<std::int64_t> year;
    std::optional<std::int64_t> month;
    std::optional<std::int64_t> day;
    std::optional<std::int64_t> hour;
    std::optional<std::int64_t> minute;
    std::optional<std::int64_t> second;
    std::optional<std::int64_t> week;
    std::optional<std::int64_t> weekday;
    std::optional<std::int64_t> weekdayOrdinal;
    std::optional<std::int64_t> quarter;

    /// The fields from year to second of a local time. Era and the other fields stay unset, so a year before our era
    /// loses its sign.
    [[nodiscard]] static DateComponents fromCivilTime(const CivilTime& time);
    /// The calendar's interpretation: unset fields get their first value (year 1, month 1, day 1, 00:00:00); week,
    /// weekday, weekdayOrdinal and quarter are ignored.
    [[nodiscard]] CivilTime civilTime() const;

    /// Debugging texts, one line per field; an unset field shows the greatest 64-bit number.
    [[nodiscard]] std::string componentsDescription() const;
    [[nodiscard]] std::string description() const;

    friend bool operator==(const DateComponents&, const DateComponents&) = default;
};

} // namespace brackwater
