#include "loss-report/SourceCalendar.h"

#include <fmt/format.h>

#include <algorithm>

namespace brackwater::lossreport {

namespace {

constexpr std::int64_t kWholeDay = 86'400;

// Overtime has the same hours on each day of an event. Time off lasts from start to end.
void addEvent(std::vector<SourceException>& found, const SourceExceptions& calendar, const SourceEvent& event,
              const WallClock& clock) {
    const auto start = clock.read(event.start), end = clock.read(event.end);
    if (!start || !end)
        return;
    std::int64_t lastDay = end->day(), until = end->secondOfDay(), from = start->secondOfDay();
    const bool isWholeDays = from == 0 && until == 0;
    if (until == 0 && (!calendar.overtime || isWholeDays)) {
        --lastDay;
        until = kWholeDay;
    }
    if (until == kWholeDay - 1)
        until = kWholeDay;
    const auto add = [&](std::int64_t first, std::int64_t last, SourceSpan hours) {
        if (first <= last)
            found.push_back({first, last, hours, calendar.name, calendar.overtime, false});
    };
    if (calendar.overtime || start->day() >= lastDay)
        return add(start->day(), lastDay, {from, until});
    add(start->day(), start->day(), {from, kWholeDay});
    add(start->day() + 1, lastDay - 1, {0, kWholeDay});
    add(lastDay, lastDay, {0, until});
}

std::vector<SourceException> exceptionsOf(const SourceSchedule& schedule, const WallClock& clock) {
    std::vector<SourceException> found;
    for (const SourceDay& day : schedule.days) {
        const auto date = clock.read(day.date);
        if (!date)
            continue;
        if (day.spans.empty())
            found.push_back({date->day(), date->day(), {0, kWholeDay}, "", false, true});
        for (const SourceSpan& span : day.spans)
            found.push_back({date->day(), date->day(), span, "", true, true});
    }
    if (!schedule.days.empty())
        return found;
    for (const SourceExceptions& calendar : schedule.calendars)
        for (const SourceEvent& event : calendar.events)
            addEvent(found, calendar, event, clock);
    return found;
}

std::string clockText(std::int64_t seconds) {
    std::string text = fmt::format("{:02}:{:02}", seconds / 3600, seconds / 60 % 60);
    return seconds % 60 == 0 ? text : text + fmt::format(":{:02}", seconds % 60);
}

} // namespace

const SourceSpans& SourceCalendar::usual(std::size_t weekday) {
    static const SourceSpans working{{28'800, 43'200}, {46'800, 61'200}}, free;
    return weekday == 0 || weekday == 6 ? free : working;
}

const SourceSpans& SourceCalendar::week(std::size_t weekday) const {
    for (std::optional<std::size_t> place = _resource; place; place = _match->resources()[*place].parent) {
        const auto& schedule = _match->resources()[*place].source->schedule;
        if (schedule && schedule->week.at(weekday))
            return *schedule->week.at(weekday);
    }
    return usual(weekday);
}

bool SourceCalendar::hasOwn(std::size_t weekday) const {
    const auto& schedule = _match->resources()[_resource].source->schedule;
    return schedule && schedule->week.at(weekday);
}

std::size_t SourceCalendar::owner() const {
    const auto& resources = _match->resources();
    const auto tells = [&resources](std::size_t place) {
        const auto& schedule = resources[place].source->schedule;
        return schedule && (!schedule->days.empty() ||
                            std::ranges::any_of(schedule->calendars,
                                                [](const auto& calendar) { return !calendar.events.empty(); }));
    };
    if (!resources[_resource].source->isGroup())
        return _resource;
    for (std::optional<std::size_t> place = _resource; place; place = resources[*place].parent)
        if (tells(*place))
            return *place;
    return _resource;
}

std::vector<SourceException> SourceCalendar::exceptions(const WallClock& clock) const {
    const auto& schedule = _match->resources()[owner()].source->schedule;
    return schedule ? exceptionsOf(*schedule, clock) : std::vector<SourceException>();
}

SourceSpans united(SourceSpans spans) {
    std::erase_if(spans, [](const SourceSpan& span) { return span.start >= span.end; });
    std::ranges::sort(spans, {}, &SourceSpan::start);
    SourceSpans joined;
    for (const SourceSpan& span : spans)
        if (!joined.empty() && span.start <= joined.back().end)
            joined.back().end = std::max(joined.back().end, span.end);
        else
            joined.push_back(span);
    return joined;
}

SourceSpans without(const SourceSpans& spans, const SourceSpans& removed) {
    SourceSpans left = united(spans);
    for (const SourceSpan& hole : united(removed)) {
        SourceSpans rest;
        for (const SourceSpan& span : left) {
            rest.push_back({span.start, std::min(span.end, hole.start)});
            rest.push_back({std::max(span.start, hole.end), span.end});
        }
        left = united(std::move(rest));
    }
    return left;
}

std::string textOf(const SourceSpans& spans) {
    std::string text;
    for (const SourceSpan& span : spans)
        text += fmt::format("{}{}-{}", text.empty() ? "" : " ", clockText(span.start), clockText(span.end));
    return text.empty() ? "free" : text;
}

} // namespace brackwater::lossreport
