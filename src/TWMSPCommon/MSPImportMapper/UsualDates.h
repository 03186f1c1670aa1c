#pragma once

#include "Platform/Time/CivilTime.h"
#include "Platform/Time/Date.h"
#include "Platform/Time/TimeZone.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Fast paths for the formats of nearly all dates, "YYYY-MM-DDThh:mm:ss" followed by nothing, "Z" or an offset
/// "+hh:mm". They give the same results as the general parsers and printers, which handle every text rejected here.
namespace brackwater::usualdates {

struct ZonedTime {
    enum class Zone { None, UTC, Offset };

    CivilTime fields; ///< as in the digits; a month may be 13
    Zone zone = Zone::None;
    std::int64_t offsetHours = 0; ///< both with the offset's sign
    std::int64_t offsetMinutes = 0;
};

[[nodiscard]] std::optional<ZonedTime> read(std::string_view text) noexcept;

/// A source text as local time of the system zone, "YYYY-MM-DDThh:mm:ss"; a text without a zone is UTC.
[[nodiscard]] std::optional<std::string> mspdiFromZelb(std::string_view text, const TimeZone& zone);

/// The instant of a local time without zone.
[[nodiscard]] std::optional<Date> dateFromMspdi(std::string_view text, const TimeZone& zone);

/// Local time of the system zone with the offset from `offsetToldForDate`, or "Z" if it is 0.
[[nodiscard]] std::optional<std::string> zelbFromDate(Date date, const TimeZone& zone);

} // namespace brackwater::usualdates
