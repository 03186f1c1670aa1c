#pragma once

#include "Platform/Time/DateComponents.h"

#include <cstdint>
#include <optional>
#include <string>

namespace brackwater {

/// The fields of a date that an operation parsed or wrote: a set of the bits below, or NSNotFound for a failure.
using UnitMask = std::uint64_t;

inline constexpr UnitMask kYearUnit = 4;
inline constexpr UnitMask kMonthUnit = 8;
inline constexpr UnitMask kDayUnit = 16;
inline constexpr UnitMask kHourUnit = 32;
inline constexpr UnitMask kMinuteUnit = 64;
inline constexpr UnitMask kSecondUnit = 128;
inline constexpr UnitMask kDateUnits = kYearUnit | kMonthUnit | kDayUnit;
inline constexpr UnitMask kTimeUnits = kHourUnit | kMinuteUnit | kSecondUnit;
inline constexpr UnitMask MSPCTimeZoneHourUnit = 0x200000;   ///< the zone's hours were given
inline constexpr UnitMask MSPCTimeZoneMinuteUnit = 0x400000; ///< the zone's minutes were given
inline constexpr UnitMask MSPCTimeZoneUTCUnit = 0x800000;    ///< the zone was given as UTC
inline constexpr UnitMask MSPCTimeZoneMask = MSPCTimeZoneHourUnit | MSPCTimeZoneMinuteUnit | MSPCTimeZoneUTCUnit;
inline constexpr UnitMask MSPCAllUnits = kDateUnits | kTimeUnits | MSPCTimeZoneMask;
/// Instead of a mask: failure.
inline constexpr UnitMask NSNotFound = 0x7FFFFFFFFFFFFFFF;

/// The offset in seconds east of Greenwich shown with a date: the zone's at that instant; but for a date in daylight
/// saving time seen from a present outside it, the present offset plus the daylight saving time.
[[nodiscard]] std::int64_t offsetToldForDate(Date date, const TimeZone& zone, Date now);

/// Date-time fields with their zone: UTC, or an offset from GMT in hours and minutes that both carry the offset's sign.
/// New components are UTC until changed.
class MSPCDateComponents : public DateComponents {
public:
    MSPCDateComponents() = default;
    explicit MSPCDateComponents(const DateComponents& components) : DateComponents(components) {}

    // Plain accessors; `fixUTC` makes isUTC match the offset.
    [[nodiscard]] bool isUTC() const noexcept { return _isUTC; }
    void setIsUTC(bool isUTC) noexcept { _isUTC = isUTC; }
    [[nodiscard]] std::int64_t timeZoneHour() const noexcept { return _timeZoneHour; }
    void setTimeZoneHour(std::int64_t hours) noexcept { _timeZoneHour = hours; }
    [[nodiscard]] std::int64_t timeZoneMinute() const noexcept { return _timeZoneMinute; }
    void setTimeZoneMinute(std::int64_t minutes) noexcept { _timeZoneMinute = minutes; }

    /// Sets isUTC to whether both parts of the offset are 0.
    void fixUTC() noexcept;
    /// The offset in the two zone fields, in seconds east of Greenwich, ignoring isUTC; saturated.
    [[nodiscard]] std::int64_t secondsFromGMT() const noexcept;

    /// Writes the system zone's offset at `date` into the zone fields and leaves the local time alone; without a date,
    /// the offset for the fields in the system zone. For a date in daylight saving time seen from a present outside it,
    /// the offset is the present one plus the daylight saving time. `now` is the present. Returns MSPCAllUnits.
    UnitMask forceSystemTimezoneforDate(std::optional<Date> date, Date now = Date::now());

    // Convert the local time to another zone. They return MSPCAllUnits, or NSNotFound, without changes, if the fields
    // are not an instant.

    UnitMask convertToUTC();
    /// The target is the system zone's offset at the instant of the fields in the system zone, ignoring the zone
    /// fields: near a clock change that differs from the offset at the components' own instant.
    UnitMask convertToSystemTimezone();
    UnitMask convertToTimeZoneForSecondsFromGMT(std::int64_t seconds);

    [[nodiscard]] std::string componentsDescription() const;
    [[nodiscard]] std::string description() const;

    friend bool operator==(const MSPCDateComponents&, const MSPCDateComponents&) = default;

private:
    bool _isUTC = true;
    std::int64_t _timeZoneHour = 0;
    std::int64_t _timeZoneMinute = 0;
};

} // namespace brackwater
