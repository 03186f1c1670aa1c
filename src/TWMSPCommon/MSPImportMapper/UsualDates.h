#pragma once

#include "Platform/Time/CivilTime.h"
#include "Platform/Time/Date.h"
#include "Platform/Time/TimeZone.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// The forms in which nearly all dates come, "YYYY-MM-DDThh:mm:ss" with nothing, "Z" or an offset "+hh:mm" behind it,
/// read and printed at once. They mean what the general readers and printers make of them, which take every text that
/// is refused here.
namespace brackwater::usualdates {

struct ZonedTime {
    enum class Zone { None, UTC, Offset };

    CivilTime fields; ///< as the digits tell them; a month may be 13
    Zone zone = Zone::None;
    std::int64_t offsetHours = 0; ///< both with the offset's sign
    std::int64_t offsetMinutes = 0;
};

[[nodiscard]] std::optional<ZonedTime> read(std::string_view text) noexcept;

/// A source text as the system zone's wall clock, "YYYY-MM-DDThh:mm:ss"; a text without a zone is read as UTC.
[[nodiscard]] std::optional<std::string> mspdiFromZelb(std::string_view text, const TimeZone& zone);

/// The instant of a wall clock without zone.
[[nodiscard]] std::optional<Date> dateFromMspdi(std::string_view text, const TimeZone& zone);

/// Wall clock of the system zone and the offset that `offsetToldForDate` gives, or "Z" where it is 0.
[[nodiscard]] std::optional<std::string> zelbFromDate(Date date, const TimeZone& zone);

} // namespace brackwater::usualdates
