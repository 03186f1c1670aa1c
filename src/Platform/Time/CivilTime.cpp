#include "Platform/Time/CivilTime.h"

#include <algorithm>

namespace brackwater {
namespace {

// Days are counted from 1970-01-01. The year begins in March here, so that the leap day is its last day and one formula
// gives the day of the year from the month.
constexpr std::int64_t kFirstGregorianDay = -141427; // 1582-10-15
constexpr std::int64_t kFirstGregorianYear = 1582;
constexpr std::int64_t kGregorianEpoch = -719468; // 0000-03-01, Gregorian
constexpr std::int64_t kJulianEpoch = -719470;    // 0000-03-01, Julian
constexpr std::int64_t kDaysPer400Years = 146097;
constexpr std::int64_t kDaysPer4JulianYears = 1461;

// A larger year, month, day or hour would be beyond kLastWallSecond anyway, and a larger minute or second is nonsense.
// The limit keeps all sums below within 64 bits.
constexpr std::int64_t kLargestField = 20'000'000'000'000;
constexpr std::int64_t kLargestYear = 6'000'000;

constexpr std::int64_t dayOfMarchYear(std::int64_t month, std::int64_t day) {
    return (153 * (month > 2 ? month - 3 : month + 9) + 2) / 5 + day - 1;
}

constexpr std::int64_t daysFromGregorian(std::int64_t year, std::int64_t month, std::int64_t day) {
    const std::int64_t marchYear = month > 2 ? year : year - 1;
    const std::int64_t era = floorDivide(marchYear, 400);
    const std::int64_t yearOfEra = marchYear - era * 400;
    return kGregorianEpoch + era * kDaysPer400Years + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 +
           dayOfMarchYear(month, day);
}

constexpr std::int64_t daysFromJulian(std::int64_t year, std::int64_t month, std::int64_t day) {
    const std::int64_t marchYear = month > 2 ? year : year - 1;
    return kJulianEpoch + marchYear * 365 + floorDivide(marchYear, 4) + dayOfMarchYear(month, day);
}

// The days that the change skipped (5 to 14 October 1582) are treated as Julian.
constexpr std::int64_t daysFromCivil(std::int64_t year, std::int64_t month, std::int64_t day) {
    const bool gregorian = year >= kFirstGregorianYear;
    const std::int64_t days = gregorian ? daysFromGregorian(year, month, day) : daysFromJulian(year, month, day);
    if (gregorian == (days >= kFirstGregorianDay)) [[likely]]
        return days;
    return gregorian ? daysFromJulian(year, month, day) : daysFromGregorian(year, month, day);
}

static_assert(daysFromCivil(1970, 1, 1) == 0);
static_assert(daysFromCivil(1582, 10, 15) == kFirstGregorianDay);
static_assert(daysFromCivil(1582, 10, 4) == kFirstGregorianDay - 1);

void setDateFromMarchYear(CivilTime& time, std::int64_t marchYear, std::int64_t dayOfYear) {
    const std::int64_t marchMonth = (5 * dayOfYear + 2) / 153;
    time.day = dayOfYear - (153 * marchMonth + 2) / 5 + 1;
    time.month = marchMonth < 10 ? marchMonth + 3 : marchMonth - 9;
    time.year = time.month > 2 ? marchYear : marchYear + 1;
}

void setGregorianDate(CivilTime& time, std::int64_t days) {
    const std::int64_t sinceEpoch = days - kGregorianEpoch;
    const std::int64_t era = floorDivide(sinceEpoch, kDaysPer400Years);
    const std::int64_t dayOfEra = sinceEpoch - era * kDaysPer400Years;
    const std::int64_t yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    setDateFromMarchYear(time, yearOfEra + era * 400, dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100));
}

void setJulianDate(CivilTime& time, std::int64_t days) {
    const std::int64_t sinceEpoch = days - kJulianEpoch;
    const std::int64_t era = floorDivide(sinceEpoch, kDaysPer4JulianYears);
    const std::int64_t dayOfEra = sinceEpoch - era * kDaysPer4JulianYears;
    const std::int64_t yearOfEra = (dayOfEra - dayOfEra / 1460) / 365;
    setDateFromMarchYear(time, yearOfEra + era * 4, dayOfEra - 365 * yearOfEra);
}

} // namespace

std::optional<std::int64_t> wallSecondsFromCivilTime(const CivilTime& time) noexcept {
    for (const std::int64_t field : {time.year, time.month, time.day, time.hour, time.minute, time.second})
        if (field > kLargestField || field < -kLargestField) [[unlikely]]
            return std::nullopt;
    std::int64_t year = time.year;
    std::int64_t month = time.month;
    if (month < 1 || month > 12) [[unlikely]] {
        year += floorDivide(month - 1, 12);
        month = floorRemainder(month - 1, 12) + 1;
    }
    if (year > kLargestYear || year < -kLargestYear) [[unlikely]]
        return std::nullopt;
    const std::int64_t seconds =
        daysFromCivil(year, month, time.day) * kSecondsOfCivilDay + time.hour * 3600 + time.minute * 60 + time.second;
    if (seconds > kLastWallSecond || seconds < -kLastWallSecond) [[unlikely]]
        return std::nullopt;
    return seconds;
}

CivilTime civilTimeFromWallSeconds(std::int64_t seconds) noexcept {
    seconds = std::clamp(seconds, -kLastWallSecond, kLastWallSecond);
    const std::int64_t days = floorDivide(seconds, kSecondsOfCivilDay);
    const std::int64_t secondOfDay = seconds - days * kSecondsOfCivilDay;
    CivilTime time;
    if (days >= kFirstGregorianDay) [[likely]]
        setGregorianDate(time, days);
    else
        setJulianDate(time, days);
    time.hour = secondOfDay / 3600;
    time.minute = secondOfDay / 60 % 60;
    time.second = secondOfDay % 60;
    return time;
}

} // namespace brackwater
