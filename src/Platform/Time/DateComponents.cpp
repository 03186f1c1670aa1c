#include "Platform/Time/DateComponents.h"

#include <fmt/format.h>

#include <algorithm>
#include <limits>

namespace brackwater {
namespace {

constexpr std::int64_t kEraBC = 0;
constexpr std::int64_t kUndefinedComponent = std::numeric_limits<std::int64_t>::max();

std::int64_t shown(const std::optional<std::int64_t>& field) { return field.value_or(kUndefinedComponent); }

} // namespace

DateComponents DateComponents::fromCivilTime(const CivilTime& time) {
    DateComponents components;
    components.year = time.year > 0 ? time.year : 1 - time.year;
    components.month = time.month;
    components.day = time.day;
    components.hour = time.hour;
    components.minute = time.minute;
    components.second = time.second;
    return components;
}

CivilTime DateComponents::civilTime() const {
    CivilTime time;
    time.year = year.value_or(time.year);
    if (era == kEraBC)
        time.year = 1 - std::max(time.year, -kUndefinedComponent + 1);
    time.month = month.value_or(time.month);
    time.day = day.value_or(time.day);
    time.hour = hour.value_or(time.hour);
    time.minute = minute.value_or(time.minute);
    time.second = second.value_or(time.second);
    return time;
}

std::string DateComponents::componentsDescription() const {
    return fmt::format("\n  era={}\n  year={}\n  month={}\n  day={}\n  hour={}\n  minute={}\n  second={}\n  week={}"
                       "\n  weekday={}\n  weekdayOrdinal={}\n  quarter={}",
                       shown(era), shown(year), shown(month), shown(day), shown(hour), shown(minute), shown(second),
                       shown(week), shown(weekday), shown(weekdayOrdinal), shown(quarter));
}

std::string DateComponents::description() const { return "NSDateComponents:" + componentsDescription(); }

} // namespace brackwater
