#include "TWMSPCommon/WorkingTime/MSPEScheduleCalendar.h"

#include "Platform/Text/TextReadings.h"
#include "Platform/Time/GregorianCalendar.h"
#include "Platform/Values/Exception.h"
#include "Platform/Values/Saturating.h"
#include "Platform/Xml/XMLElement.h"
#include "TWMSPCommon/WorkingTime/MSPEScheduleIterator.h"

#include <fmt/format.h>

#include <algorithm>

namespace brackwater {
namespace {

constexpr std::int64_t kSunday = 1;
constexpr std::int64_t kMonday = 2;
constexpr std::int64_t kFriday = 6;
constexpr std::int64_t kSaturday = 7;
constexpr std::array<std::string_view, 8> kWeekdayNames = {"",          "sunday",   "monday", "tuesday",
                                                           "wednesday", "thursday", "friday", "saturday"};
constexpr double kSecondsPerDay = 86400.0;
constexpr int kDaysPerWeek = 7;

bool isWeekday(std::int64_t weekday) { return weekday >= kSunday && weekday <= kSaturday; }

std::size_t checkedWeekday(std::int64_t weekday) {
    assertThat(isWeekday(weekday), "Incorrect value of weekdey ({}). Should be from 1 to 7.", weekday);
    return static_cast<std::size_t>(weekday);
}

double secondsOf(std::int64_t hour, std::int64_t minute, std::int64_t second) {
    return static_cast<double>(hour) * 3600.0 + static_cast<double>(minute) * 60.0 + static_cast<double>(second);
}

double startOf(const MSPEScheduleCalendar::TimePeriod& period) {
    return secondsOf(period.fromHour, period.fromMinute, period.fromSecond);
}

double endOf(const MSPEScheduleCalendar::TimePeriod& period) {
    return secondsOf(period.toHour, period.toMinute, period.toSecond);
}

double secondsSinceMidnight(const CivilTime& time) { return secondsOf(time.hour, time.minute, time.second); }

/// A missing time is midnight; nothing if the text is not a number.
std::optional<std::int64_t> timeFromAttribute(const XMLElement& span, std::string_view name) {
    const auto text = span.attributeForName(name);
    if (!text)
        return 0;
    const auto scanned = scanDouble(*text);
    if (!scanned)
        return std::nullopt;
    return saturatingCut<std::int64_t>(scanned->value);
}

std::optional<MSPEScheduleCalendar::TimePeriod> periodFromSpan(const XMLElement& span) {
    const auto start = timeFromAttribute(span, "start-time");
    const auto end = timeFromAttribute(span, "end-time");
    if (!start || !end)
        return std::nullopt;
    return MSPEScheduleCalendar::TimePeriod{*start / 3600, *start % 3600 / 60, *start % 60,
                                            *end / 3600,   *end % 3600 / 60,   *end % 60};
}

} // namespace

MSPEScheduleCalendar::MSPEScheduleCalendar(const XMLElement& zelbSchedule) {
    for (const XMLElement& day : zelbSchedule.objectsForXQuery(XMLQuery("schedule-day"))) {
        const auto name = day.attributeForName("day-of-week");
        const auto known = std::find(kWeekdayNames.begin() + kSunday, kWeekdayNames.end(), name.value_or(""));
        if (known == kWeekdayNames.end())
            continue;
        for (const XMLElement& span : day.objectsForXQuery(XMLQuery("time-span")))
            if (const auto period = periodFromSpan(span))
                addWorkingTimePeriod(*period, known - kWeekdayNames.begin());
    }
}

MSPEScheduleCalendar MSPEScheduleCalendar::withStandardCalendar() {
    MSPEScheduleCalendar calendar;
    for (std::int64_t weekday = kMonday; weekday <= kFriday; ++weekday) {
        calendar.addWorkingTimePeriod({8, 0, 0, 12, 0, 0}, weekday);
        calendar.addWorkingTimePeriod({13, 0, 0, 17, 0, 0}, weekday);
    }
    return calendar;
}

const MSPEScheduleCalendar& MSPEScheduleCalendar::standardCalendar() {
    static const MSPEScheduleCalendar calendar = withStandardCalendar();
    return calendar;
}

void MSPEScheduleCalendar::addWorkingTimePeriod(const TimePeriod& period, std::int64_t weekday) {
    WorkingDay& day = _workingDays[checkedWeekday(weekday)];
    if (!day.timePeriods)
        day.timePeriods.emplace();
    day.timePeriods->push_back(period);
    day.isWorkingDay = true;
}

std::optional<std::int64_t> MSPEScheduleCalendar::periodAt(double time, std::int64_t weekday, bool forward) const {
    const std::int64_t count = timePeriodsInWeekday(weekday);
    if (forward) {
        for (std::int64_t index = 0; index < count; ++index)
            if (endTimeForTimePeriod(index, weekday) > time)
                return index;
    } else {
        for (std::int64_t index = count - 1; index >= 0; --index)
            if (startTimeForTimePeriod(index, weekday) < time)
                return index;
    }
    return std::nullopt;
}

std::optional<MSPEScheduleCalendar::WorkingMoment> MSPEScheduleCalendar::startForDate(Date date, bool forward) const {
    const GregorianCalendar gregorian;
    const double timeOfDate = secondsSinceMidnight(gregorian.fieldsOfDate(date));
    const double step = forward ? kSecondsPerDay : -kSecondsPerDay;
    for (int dayCount = 0; dayCount < kDaysPerWeek; ++dayCount, date = date.advancedBy(step)) {
        const std::int64_t weekday = gregorian.weekdayOfDate(date);
        if (!isWorkingDayWeekday(weekday))
            continue;
        double time = 0.0;
        std::int64_t index = 0;
        if (dayCount > 0) {
            index = forward ? 0 : timePeriodsInWeekday(weekday) - 1;
            time = forward ? startTimeForTimePeriod(index, weekday) : endTimeForTimePeriod(index, weekday);
        } else {
            const auto found = periodAt(timeOfDate, weekday, forward);
            if (!found)
                continue;
            index = *found;
            time = forward ? std::max(startTimeForTimePeriod(index, weekday), timeOfDate)
                           : std::min(endTimeForTimePeriod(index, weekday), timeOfDate);
        }
        return WorkingMoment{gregorian.startOfDay(date).advancedBy(time), time, index};
    }
    return std::nullopt;
}

std::optional<Date> MSPEScheduleCalendar::startDateForDate(Date date, bool forward) const {
    const auto moment = startForDate(date, forward);
    return moment ? std::optional(moment->date) : std::nullopt;
}

double MSPEScheduleCalendar::workingTimeFromDate(Date fromDate, Date toDate) const {
    if (!(fromDate < toDate))
        return 0.0;
    const GregorianCalendar gregorian;
    const Date firstDay = gregorian.startOfDay(fromDate);
    const Date lastDay = gregorian.startOfDay(toDate);
    const double fromTime = secondsSinceMidnight(gregorian.fieldsOfDate(fromDate));
    const double toTime = secondsSinceMidnight(gregorian.fieldsOfDate(toDate));

    double sum = 0.0;
    MSPEScheduleIterator iterator(*this, fromDate, true);
    while (const auto next = iterator.nextTimePeriod()) {
        if (next->date > lastDay)
            break;
        if (next->date < firstDay)
            continue;
        const double low = std::max(next->date == firstDay ? fromTime : 0.0, startOf(next->timePeriod));
        const double high = std::min(next->date == lastDay ? toTime : kSecondsPerDay, endOf(next->timePeriod));
        if (high > low)
            sum += high - low;
    }
    return sum;
}

bool MSPEScheduleCalendar::isWorkingDay(Date date) const {
    return isWorkingDayWeekday(GregorianCalendar().weekdayOfDate(date));
}

const MSPEScheduleCalendar::WorkingDay& MSPEScheduleCalendar::workingDay(std::int64_t weekday) const {
    return _workingDays[checkedWeekday(weekday)];
}

bool MSPEScheduleCalendar::isWorkingDayWeekday(std::int64_t weekday) const { return workingDay(weekday).isWorkingDay; }

std::int64_t MSPEScheduleCalendar::timePeriodsInWeekday(std::int64_t weekday) const {
    const auto& periods = workingDay(weekday).timePeriods;
    return periods ? static_cast<std::int64_t>(periods->size()) : 0;
}

const MSPEScheduleCalendar::TimePeriod* MSPEScheduleCalendar::timePeriod(std::int64_t index,
                                                                         std::int64_t weekday) const {
    if (!isWeekday(weekday) || index < 0 || index >= timePeriodsInWeekday(weekday))
        return nullptr;
    return &(*workingDay(weekday).timePeriods)[static_cast<std::size_t>(index)];
}

double MSPEScheduleCalendar::durationOfTimePeriod(std::int64_t index, std::int64_t weekday) const {
    const TimePeriod* period = timePeriod(index, weekday);
    return period ? endOf(*period) - startOf(*period) : -1.0;
}

std::optional<MSPEScheduleCalendar::TimeOfDay> MSPEScheduleCalendar::startOfTimePeriod(std::int64_t index,
                                                                                       std::int64_t weekday) const {
    const TimePeriod* period = timePeriod(index, weekday);
    if (!period)
        return std::nullopt;
    return TimeOfDay{period->fromHour, period->fromMinute, period->fromSecond};
}

std::optional<MSPEScheduleCalendar::TimeOfDay> MSPEScheduleCalendar::endOfTimePeriod(std::int64_t index,
                                                                                     std::int64_t weekday) const {
    const TimePeriod* period = timePeriod(index, weekday);
    if (!period)
        return std::nullopt;
    return TimeOfDay{period->toHour, period->toMinute, period->toSecond};
}

double MSPEScheduleCalendar::startTimeForTimePeriod(std::int64_t index, std::int64_t weekday) const {
    const TimePeriod* period = timePeriod(index, weekday);
    return period ? startOf(*period) : -1.0;
}

double MSPEScheduleCalendar::endTimeForTimePeriod(std::int64_t index, std::int64_t weekday) const {
    const TimePeriod* period = timePeriod(index, weekday);
    return period ? endOf(*period) : -1.0;
}

double MSPEScheduleCalendar::workingTimeOfWeek() const {
    double sum = 0.0;
    for (const WorkingDay& day : _workingDays)
        if (day.timePeriods)
            for (const TimePeriod& period : *day.timePeriods)
                sum += endOf(period) - startOf(period);
    return sum;
}

std::string MSPEScheduleCalendar::description() const {
    std::string text = "MSPEScheduleCalendar:";
    for (std::int64_t weekday = kSunday; weekday <= kSaturday; ++weekday) {
        const WorkingDay& day = workingDay(weekday);
        text += fmt::format("\n  {}: {}", kWeekdayNames[static_cast<std::size_t>(weekday)],
                            day.isWorkingDay ? "working" : "not working");
        if (!day.timePeriods)
            continue;
        for (const TimePeriod& p : *day.timePeriods)
            text += fmt::format(" {:02}:{:02}:{:02}-{:02}:{:02}:{:02}", p.fromHour, p.fromMinute, p.fromSecond,
                                p.toHour, p.toMinute, p.toSecond);
    }
    return text;
}

} // namespace brackwater
