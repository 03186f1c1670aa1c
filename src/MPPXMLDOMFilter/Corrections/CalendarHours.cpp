#include "MPPXMLDOMFilter/Corrections/CalendarHours.h"

#include "MPPXMLDOMFilter/Corrections/EventDays.h"
#include "MPPXMLDOMFilter/Model/MPPProject.h"
#include "Platform/Time/TimeZone.h"
#include "Platform/Values/Saturating.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <unordered_map>
#include <unordered_set>

namespace brackwater {

namespace {

constexpr std::int64_t kSecondsPerDay = 86400;

/// Calls `visit` once for every written calendar, base calendars first.
template <typename Visit>
void forEachCalendar(const MPPProject& project, const Visit& visit) {
    std::unordered_set<const MPPCalendar*> visited;
    const auto visitOnce = [&](MPPCalendar* calendar) {
        if (calendar != nullptr && visited.insert(calendar).second)
            visit(*calendar);
    };
    visitOnce(project.standardCalendar.get());
    for (const auto& calendar : project.baseCalendars)
        visitOnce(calendar.get());
    for (const auto& resource : project.resources)
        visitOnce(resource->calendar.record());
}

bool isWrittenAs(const MPPRangeList& list, const MinuteRanges& hours) {
    return std::equal(list.begin(), list.end(), hours.begin(), hours.end(), [](const auto& range, MinuteRange minutes) {
        return minutesOf(*range) == minutes && minutesBehindMidnightOf(*range).end == 0;
    });
}

/// By the day on which they fall.
std::array<MinuteRanges, 7> minutesBehindMidnight(const MPPCalendarWorkWeek& week) {
    std::array<MinuteRanges, 7> minutes;
    const auto lists = week.days();
    for (std::size_t weekday = 0; weekday < lists.size(); ++weekday) {
        if (!*lists[weekday])
            continue;
        MinuteCover cover;
        for (const auto& range : **lists[weekday])
            cover.add(minutesBehindMidnightOf(*range));
        minutes[(weekday + 1) % lists.size()] = cover.ranges();
    }
    return minutes;
}

class CalendarHours {
public:
    void correct(MPPCalendar& calendar);

private:
    [[nodiscard]] const CalendarDays* baseOf(const MPPCalendar& calendar) const;
    void correctWeek(MPPCalendarWorkWeek& week, const CalendarDays& days) const;
    [[nodiscard]] std::shared_ptr<MPPCalendarException> exceptionOf(const ExceptionDays& days) const;
    [[nodiscard]] std::shared_ptr<MPPCalendarWorkWeek> workWeekOf(const ExceptionDays& days) const;
    [[nodiscard]] Date wallDate(std::int64_t day, std::int64_t second) const;

    TimeZone _systemZone = TimeZone::system();
    std::unordered_map<const MPPCalendar*, CalendarDays> _baseCalendars;
};

void CalendarHours::correct(MPPCalendar& calendar) {
    const CalendarDays* base = baseOf(calendar);
    if (calendar.defaultWorkWeek)
        correctWeek(*calendar.defaultWorkWeek, CalendarDays(calendar, base));
    if (calendar.source) {
        CalendarDays days(calendar, base);
        days.setExceptions(daysOfEvents(*calendar.source, days));
        calendar.exceptions.clear();
        for (const ExceptionDays& exception : days.exceptions())
            if (exception.week)
                calendar.workWeeks.push_back(workWeekOf(exception));
            else
                calendar.exceptions.push_back(exceptionOf(exception));
        if (!calendar.baseCalendar.record())
            _baseCalendars.emplace(&calendar, std::move(days));
    } else if (!calendar.baseCalendar.record()) {
        _baseCalendars.emplace(&calendar, CalendarDays(calendar, nullptr));
    }
}

const CalendarDays* CalendarHours::baseOf(const MPPCalendar& calendar) const {
    const auto found = _baseCalendars.find(calendar.baseCalendar.record());
    return found == _baseCalendars.end() ? nullptr : &found->second;
}

// Each day's hours as the format can store them; ranges are split at midnight.
void CalendarHours::correctWeek(MPPCalendarWorkWeek& week, const CalendarDays& days) const {
    const std::array<MinuteRanges, 7> behindMidnight = minutesBehindMidnight(week);
    const auto lists = week.days();
    for (std::size_t weekday = 0; weekday < lists.size(); ++weekday) {
        MPPDayRanges& list = *lists[weekday];
        if (!list && behindMidnight[weekday].empty())
            continue;
        const MinuteRanges hours = fittingTheFormat(united(days.weekHoursOn(weekday), behindMidnight[weekday]));
        if (!list || !isWrittenAs(*list, hours))
            list = std::make_shared<MPPRangeList>(rangeListOf(hours));
    }
}

std::shared_ptr<MPPCalendarException> CalendarHours::exceptionOf(const ExceptionDays& days) const {
    auto exception = std::make_shared<MPPCalendarException>();
    exception->startDate = wallDate(days.firstDay, 0);
    exception->endDate = wallDate(days.lastDay, kSecondsPerDay - 1);
    exception->workRanges = rangeListOf(days.hours);
    if (!days.name.empty())
        exception->name = days.name;
    return exception;
}

std::shared_ptr<MPPCalendarWorkWeek> CalendarHours::workWeekOf(const ExceptionDays& days) const {
    auto week = std::make_shared<MPPCalendarWorkWeek>();
    week->startDate = wallDate(days.firstDay, 0);
    week->endDate = wallDate(days.lastDay, kSecondsPerDay - 1);
    for (std::size_t weekday = 0; weekday < week->days().size(); ++weekday)
        *week->days()[weekday] = std::make_shared<MPPRangeList>(rangeListOf((*days.week)[weekday]));
    if (!days.name.empty())
        week->name = days.name;
    return week;
}

Date CalendarHours::wallDate(std::int64_t day, std::int64_t second) const {
    const std::int64_t wallSeconds = day * kSecondsPerDay + second;
    return {static_cast<double>(wallSeconds - _systemZone.secondsFromGMTAtWallTime(wallSeconds))};
}

} // namespace

void correctCalendarHours(MPPProject& project) {
    CalendarHours hours;
    forEachCalendar(project, [&hours](MPPCalendar& calendar) { hours.correct(calendar); });
}

void numberCalendarExceptions(MPPProject& project) {
    std::uint32_t number = 0;
    forEachCalendar(project, [&number](MPPCalendar& calendar) {
        for (const auto& exception : calendar.exceptions) {
            exception->number = ++number;
            if (exception->startDate && exception->endDate) {
                const double days = exception->endDate->secondsSince(*exception->startDate) / kSecondsPerDay;
                exception->numberOfDays = saturatingCut<std::uint16_t>(std::max(std::round(days), 1.0));
            }
        }
    });
}

} // namespace brackwater
