#include "TWMSPCommon/MSPCDateComponents.h"

#include "Platform/Time/GregorianCalendar.h"
#include "Platform/Values/Saturating.h"

#include <fmt/format.h>

#include <algorithm>

namespace brackwater {
namespace {

// Far more than any date needs, and far less than 64 bits in seconds.
constexpr std::int64_t kLargestZoneField = 1'000'000'000'000'000;

} // namespace

std::int64_t offsetToldForDate(Date date, const TimeZone& zone, Date now) {
    if (zone.isDaylightSavingTime(date) && !zone.isDaylightSavingTime(now))
        return zone.secondsFromGMT(now) + saturatingCut<std::int64_t>(zone.daylightSavingTimeOffset(date));
    return zone.secondsFromGMT(date);
}

void MSPCDateComponents::fixUTC() noexcept { _isUTC = _timeZoneHour == 0 && _timeZoneMinute == 0; }

std::int64_t MSPCDateComponents::secondsFromGMT() const noexcept {
    return std::clamp(_timeZoneHour, -kLargestZoneField, kLargestZoneField) * 3600 +
           std::clamp(_timeZoneMinute, -kLargestZoneField, kLargestZoneField) * 60;
}

UnitMask MSPCDateComponents::forceSystemTimezoneforDate(std::optional<Date> date, Date now) {
    const TimeZone zone = TimeZone::system();
    if (!date)
        date = GregorianCalendar(zone).dateFromFields(civilTime());
    const std::int64_t minutes = (date ? offsetToldForDate(*date, zone, now) : zone.secondsFromGMT(now)) / 60;
    _timeZoneMinute = minutes % 60;
    _timeZoneHour = minutes / 60;
    fixUTC();
    return MSPCAllUnits;
}

UnitMask MSPCDateComponents::convertToUTC() { return _isUTC ? MSPCAllUnits : convertToTimeZoneForSecondsFromGMT(0); }

UnitMask MSPCDateComponents::convertToSystemTimezone() {
    const TimeZone zone = TimeZone::system();
    const auto date = GregorianCalendar(zone).dateFromFields(civilTime());
    return date ? convertToTimeZoneForSecondsFromGMT(zone.secondsFromGMT(*date)) : NSNotFound;
}

UnitMask MSPCDateComponents::convertToTimeZoneForSecondsFromGMT(std::int64_t seconds) {
    const auto date = GregorianCalendar::dateFromFields(civilTime(), _isUTC ? 0 : secondsFromGMT());
    if (!date)
        return NSNotFound;
    const auto moved = DateComponents::fromCivilTime(GregorianCalendar::fieldsOfDate(*date, seconds));
    year = moved.year;
    month = moved.month;
    day = moved.day;
    hour = moved.hour;
    minute = moved.minute;
    second = moved.second;
    _timeZoneHour = seconds / 3600;
    _timeZoneMinute = seconds / 60 % 60;
    fixUTC();
    return MSPCAllUnits;
}

std::string MSPCDateComponents::componentsDescription() const {
    return fmt::format("\n  isUTC={}\n  timeZoneHour={}\n  timeZoneMinute={}", _isUTC ? 1 : 0, _timeZoneHour,
                       _timeZoneMinute);
}

std::string MSPCDateComponents::description() const {
    return "MSPCDateComponents:" + DateComponents::componentsDescription() + componentsDescription();
}

} // namespace brackwater
