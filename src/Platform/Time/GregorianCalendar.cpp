#include "Platform/Time/GregorianCalendar.h"

#include "Platform/Time/TimeZoneRules.h"
#include "Platform/Values/Saturating.h"

#include <algorithm>
#include <cmath>

namespace brackwater {
namespace {

std::int64_t wholeSeconds(Date date) {
    const auto seconds = saturatingCut<std::int64_t>(std::floor(date.secondsSince1970));
    return std::clamp(seconds, -kLastWallSecond, kLastWallSecond);
}

std::int64_t saneOffset(std::int64_t secondsFromGMT) {
    return std::clamp(secondsFromGMT, -2 * kLastWallSecond, 2 * kLastWallSecond);
}

} // namespace

GregorianCalendar::GregorianCalendar() : _zone(TimeZone::system()) {}

GregorianCalendar::GregorianCalendar(TimeZone zone) : _zone(std::move(zone)) {}

std::optional<Date> GregorianCalendar::dateFromFields(const CivilTime& fields) const {
    const auto wallSeconds = wallSecondsFromCivilTime(fields);
    if (!wallSeconds)
        return std::nullopt;
    return Date{static_cast<double>(*wallSeconds - _zone.rules().totalOffsetAtWallTime(*wallSeconds))};
}

CivilTime GregorianCalendar::fieldsOfDate(Date date) const { return civilTimeFromWallSeconds(wallSecondsOfDate(date)); }

int GregorianCalendar::weekdayOfDate(Date date) const {
    constexpr std::int64_t thursday = 4; // 1970-01-01, counted from Sunday 0
    const std::int64_t days = floorDivide(wallSecondsOfDate(date), kSecondsOfCivilDay);
    return static_cast<int>(floorRemainder(days + thursday, 7)) + 1;
}

Date GregorianCalendar::startOfDay(Date date) const {
    const std::int64_t day = floorDivide(wallSecondsOfDate(date), kSecondsOfCivilDay);
    const std::int64_t midnight = day * kSecondsOfCivilDay;
    return Date{static_cast<double>(midnight - _zone.rules().totalOffsetAtWallTime(midnight))};
}

std::optional<Date> GregorianCalendar::dateFromFields(const CivilTime& fields, std::int64_t secondsFromGMT) {
    const auto wallSeconds = wallSecondsFromCivilTime(fields);
    if (!wallSeconds)
        return std::nullopt;
    const std::int64_t seconds = *wallSeconds - saneOffset(secondsFromGMT);
    if (seconds > kLastWallSecond || seconds < -kLastWallSecond)
        return std::nullopt;
    return Date{static_cast<double>(seconds)};
}

CivilTime GregorianCalendar::fieldsOfDate(Date date, std::int64_t secondsFromGMT) {
    return civilTimeFromWallSeconds(wholeSeconds(date) + saneOffset(secondsFromGMT));
}

std::int64_t GregorianCalendar::wallSecondsOfDate(Date date) const {
    const std::int64_t seconds = wholeSeconds(date);
    return seconds + _zone.rules().offsetAt(seconds).total;
}

} // namespace brackwater
