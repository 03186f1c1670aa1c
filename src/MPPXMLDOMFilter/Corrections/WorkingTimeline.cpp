#include "MPPXMLDOMFilter/Corrections/WorkingTimeline.h"

#include "MPPXMLDOMFilter/Model/MPPCalendar.h"
#include "Platform/Time/CivilTime.h"
#include "Platform/Values/Saturating.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <utility>

namespace brackwater {

namespace {

constexpr std::int64_t kLastDay = kLastWallSecond / kSecondsOfCivilDay;
constexpr std::int64_t kWeekdayOfDayZero = 4; // 1970-01-01 is a Thursday, counted from Sunday 0

// Calendars have at most one base; a longer chain comes from a damaged document, and may be a cycle.
constexpr std::size_t kLongestChain = 16;
constexpr std::int64_t kSecondsOfMinute = 60;
constexpr std::int64_t kSecondsOfHour = 3600;

std::int64_t wallSecondInZone(Date date, const TimeZone& zone) {
    const auto second =
        std::clamp(saturatingCut<std::int64_t>(std::floor(date.secondsSince1970)), -kLastWallSecond, kLastWallSecond);
    return std::clamp(second + zone.secondsFromGMT(date), -kLastWallSecond, kLastWallSecond);
}

std::int64_t secondOf(const MPPCalendarTime& time) {
    return time.hours() * kSecondsOfHour + time.minutes() * kSecondsOfMinute;
}

// Joins overlapping ranges, so that no second counts twice. An end of 00:00 is the midnight that ends the day.
WorkingTimeline::Hours hoursOf(const MPPRangeList& ranges) {
    WorkingTimeline::Hours hours;
    for (const auto& range : ranges) {
        if (!range || !range->start || !range->end)
            continue;
        const std::int64_t end = secondOf(*range->end);
        hours.push_back({secondOf(*range->start), end == 0 ? kSecondsOfCivilDay : end});
    }
    std::sort(hours.begin(), hours.end(), [](const auto& a, const auto& b) { return a.begin < b.begin; });
    WorkingTimeline::Hours joined;
    for (const auto& range : hours) {
        if (range.end <= range.begin)
            continue;
        if (!joined.empty() && range.begin <= joined.back().end)
            joined.back().end = std::max(joined.back().end, range.end);
        else
            joined.push_back(range);
    }
    return joined;
}

std::int64_t lengthOf(const WorkingTimeline::Hours& hours) {
    std::int64_t sum = 0;
    for (const auto& range : hours)
        sum += range.end - range.begin;
    return sum;
}

// Working seconds of an endlessly repeated week, from a Sunday in the distant past to a day.
std::int64_t workBeforeDay(const WorkingTimeline::Week& week, std::int64_t day) {
    const std::int64_t fromSunday = day + kWeekdayOfDayZero;
    const auto weekday = static_cast<std::size_t>(floorRemainder(fromSunday, WorkingTimeline::kDaysOfWeek));
    return floorDivide(fromSunday, WorkingTimeline::kDaysOfWeek) * week.before.back() + week.before[weekday];
}

} // namespace

// Collects the hours of a chain of calendars and arranges them as consecutive stretches.
class WorkingTimeline::Builder {
public:
    Builder(WorkingTimeline& line, const MPPCalendar& calendar) : _line(line) {
        const MPPCalendar* next = &calendar;
        while (next != nullptr && _chain.size() < kLongestChain) {
            _chain.push_back(next);
            next = next->baseCalendar.pointer().get();
        }
    }

    void build() {
        const std::size_t usual = addWeek(resolvedDays());
        for (const MPPCalendar* calendar : _chain)
            for (const auto& exception : calendar->exceptions)
                addException(*exception);
        Days nearer{};
        for (const MPPCalendar* calendar : _chain) {
            for (const auto& week : calendar->workWeeks)
                addDatedWeek(*week, nearer);
            takeMissingDays(nearer, calendar->defaultWorkWeek.get());
        }
        layOut(usual);
    }

private:
    /// Indexes of the hours of each day; nothing for an undefined day.
    using Days = std::array<std::optional<std::size_t>, kDaysOfWeek>;

    /// A span of days with its own week. Spans are in order of precedence.
    struct Span {
        std::int64_t firstDay;
        std::int64_t lastDay;
        std::size_t week;
    };

    std::size_t addHours(Hours hours) {
        _line._hours.push_back(std::move(hours));
        return _line._hours.size() - 1;
    }

    std::size_t addWeek(const Days& days) {
        Week week;
        for (std::size_t i = 0; i < kDaysOfWeek; ++i) {
            week.hours[i] = days[i].value();
            week.before[i + 1] = week.before[i] + lengthOf(_line._hours[week.hours[i]]);
        }
        _line._weeks.push_back(week);
        return _line._weeks.size() - 1;
    }

    void takeMissingDays(Days& days, const MPPCalendarWorkWeek* week) {
        if (week == nullptr)
            return;
        const auto ranges = week->days();
        for (std::size_t i = 0; i < kDaysOfWeek; ++i)
            if (!days[i] && *ranges[i])
                days[i] = addHours(hoursOf(**ranges[i]));
    }

    // The week without exceptions. Readers use the usual hours for days that no calendar in the chain defines.
    const Days& resolvedDays() {
        for (const MPPCalendar* calendar : _chain)
            takeMissingDays(_usual, calendar->defaultWorkWeek.get());
        const std::size_t free = addHours({});
        const std::size_t worked =
            addHours({{8 * kSecondsOfHour, 12 * kSecondsOfHour}, {13 * kSecondsOfHour, 17 * kSecondsOfHour}});
        for (std::size_t i = 0; i < kDaysOfWeek; ++i)
            if (!_usual[i])
                _usual[i] = i == 0 || i == kDaysOfWeek - 1 ? free : worked;
        return _usual;
    }

    void addException(const MPPCalendarException& exception) {
        if (!exception.startDate || !exception.endDate)
            return;
        Days days;
        days.fill(addHours(hoursOf(exception.workRanges)));
        addSpan(exception.startDate, exception.endDate, addWeek(days));
    }

    // A weekday defined by a nearer calendar takes precedence over a base's dated week.
    void addDatedWeek(const MPPCalendarWorkWeek& week, const Days& nearer) {
        if (!week.startDate || !week.endDate)
            return;
        Days days = nearer;
        takeMissingDays(days, &week);
        for (std::size_t i = 0; i < kDaysOfWeek; ++i)
            if (!days[i])
                days[i] = _usual[i];
        addSpan(week.startDate, week.endDate, addWeek(days));
    }

    void addSpan(const std::optional<Date>& start, const std::optional<Date>& end, std::size_t week) {
        const auto dayOf = [this](Date date) { return floorDivide(_line.wallSecondOf(date), kSecondsOfCivilDay); };
        const Span span{dayOf(*start), dayOf(*end), week};
        if (span.firstDay <= span.lastDay)
            _spans.push_back(span);
    }

    // Goes from one start or end of a span to the next.
    void layOut(std::size_t usualWeek) {
        std::vector<std::pair<std::int64_t, std::size_t>> changes;
        for (std::size_t i = 0; i < _spans.size(); ++i) {
            changes.emplace_back(_spans[i].firstDay, i);
            changes.emplace_back(_spans[i].lastDay + 1, i);
        }
        std::sort(changes.begin(), changes.end());
        _line._stretches.push_back({-kLastDay, usualWeek, 0});
        std::set<std::size_t> running;
        for (std::size_t i = 0; i < changes.size();) {
            const std::int64_t day = changes[i].first;
            for (; i < changes.size() && changes[i].first == day; ++i)
                if (!running.insert(changes[i].second).second)
                    running.erase(changes[i].second);
            addStretch(day, running.empty() ? usualWeek : _spans[*running.begin()].week);
        }
    }

    void addStretch(std::int64_t firstDay, std::size_t week) {
        const Stretch& last = _line._stretches.back();
        if (last.week == week)
            return;
        const Week& weekOfLast = _line._weeks[last.week];
        const std::int64_t work = workBeforeDay(weekOfLast, firstDay) - workBeforeDay(weekOfLast, last.firstDay);
        _line._stretches.push_back({firstDay, week, last.workBefore + work});
    }

    WorkingTimeline& _line;
    std::vector<const MPPCalendar*> _chain;
    Days _usual{};
    std::vector<Span> _spans;
};

WorkingTimeline::WorkingTimeline(const MPPCalendar& calendar) { Builder(*this, calendar).build(); }

std::optional<Date> WorkingTimeline::advance(Date start, double seconds) const {
    const auto whole = saturatingCut<std::int64_t>(std::floor(seconds + 0.5));
    if (whole <= 0)
        return start;
    if (whole > kLastWallSecond)
        return std::nullopt;
    const auto done = momentWhenDone(workUntil(wallSecondOf(start)) + whole);
    return done ? std::optional(std::max(*done, start)) : std::nullopt;
}

std::optional<Date> WorkingTimeline::nextWorkingMoment(Date from) const {
    // The next working second ends one second after it begins.
    const auto done = momentWhenDone(workUntil(wallSecondOf(from)) + 1);
    return done ? std::optional(std::max(done->advancedBy(-1.0), from)) : std::nullopt;
}

double WorkingTimeline::workingSecondsBetween(Date from, Date to) const {
    const std::int64_t work = workUntil(wallSecondOf(to)) - workUntil(wallSecondOf(from));
    return static_cast<double>(std::max<std::int64_t>(work, 0));
}

std::int64_t WorkingTimeline::wallSecondOf(Date date) const { return wallSecondInZone(date, _zone); }

std::int64_t WorkingTimeline::workUntil(std::int64_t wallSecond) const {
    const std::int64_t day = std::max(floorDivide(wallSecond, kSecondsOfCivilDay), -kLastDay);
    const std::int64_t second = wallSecond - day * kSecondsOfCivilDay;
    const auto next = std::partition_point(_stretches.begin() + 1, _stretches.end(),
                                           [&](const Stretch& stretch) { return stretch.firstDay <= day; });
    const Stretch& stretch = *(next - 1);
    const Week& week = _weeks[stretch.week];
    std::int64_t work = stretch.workBefore + workBeforeDay(week, day) - workBeforeDay(week, stretch.firstDay);
    const auto weekday = static_cast<std::size_t>(floorRemainder(day + kWeekdayOfDayZero, kDaysOfWeek));
    for (const Range& range : _hours[week.hours[weekday]])
        work += std::clamp(second - range.begin, std::int64_t{0}, range.end - range.begin);
    return work;
}

// The first moment at which this much of the line's work is done; `work` is above 0.
std::optional<Date> WorkingTimeline::momentWhenDone(std::int64_t work) const {
    const auto next = std::partition_point(_stretches.begin() + 1, _stretches.end(),
                                           [&](const Stretch& stretch) { return stretch.workBefore < work; });
    const Stretch& stretch = *(next - 1);
    const Week& week = _weeks[stretch.week];
    const std::int64_t workOfWeek = week.before.back();
    if (workOfWeek == 0)
        return std::nullopt;
    work += workBeforeDay(week, stretch.firstDay) - stretch.workBefore;
    const std::int64_t weeks = floorDivide(work - 1, workOfWeek);
    work -= weeks * workOfWeek;
    std::size_t weekday = kDaysOfWeek - 1;
    while (week.before[weekday] >= work)
        --weekday;
    work -= week.before[weekday];
    const std::int64_t day =
        weeks * static_cast<std::int64_t>(kDaysOfWeek) + static_cast<std::int64_t>(weekday) - kWeekdayOfDayZero;
    for (const Range& range : _hours[week.hours[weekday]]) {
        const std::int64_t length = range.end - range.begin;
        if (work > length) {
            work -= length;
            continue;
        }
        const std::int64_t wallSecond = day * kSecondsOfCivilDay + range.begin + work;
        if (wallSecond > kLastWallSecond)
            return std::nullopt;
        return Date{static_cast<double>(wallSecond - _zone.secondsFromGMTAtWallTime(wallSecond))};
    }
    return std::nullopt;
}

const WorkingTimeline& WorkingTimelines::ofCalendar(const MPPCalendar& calendar) {
    const MPPCalendar* own = &calendar;
    for (std::size_t i = 0; i < kLongestChain; ++i) {
        const MPPCalendar* base = own->baseCalendar.pointer().get();
        const bool saysNothing = own->exceptions.empty() && own->workWeeks.empty() &&
                                 (!own->defaultWorkWeek || !own->defaultWorkWeek->definesAnyDay());
        if (base == nullptr || !saysNothing)
            break;
        own = base;
    }
    auto& timeline = _timelines[own];
    if (!timeline)
        timeline = std::make_unique<const WorkingTimeline>(*own);
    return *timeline;
}

} // namespace brackwater
