#include "MPPXMLDOMFilter/Corrections/EventDays.h"

#include <algorithm>
#include <set>

namespace brackwater {

namespace {

// Days that the format can store: 1983-12-31 to 2163-06-04.
constexpr std::int64_t kFirstDay = 5112;
constexpr std::int64_t kLastDay = kFirstDay + 65534;

constexpr MinuteRange kWholeDay{0, kMinutesPerDay};

/// Half a year. Longer spans get their own week instead of an exception every few days.
constexpr std::int64_t kMostSingleDays = 182;

/// Days on which an event has the same effect on the hours.
struct Part {
    std::int64_t firstDay = 0;
    std::int64_t lastDay = 0;
    MinuteRange minutes;
    std::size_t event = 0; ///< index in the list of events
};

/// The start or end of a part.
struct Edge {
    std::int64_t day = 0;
    bool begins = false;
    const Part* part = nullptr;
};

std::vector<Part> partsOf(const MPPCalendarSource& events) {
    std::vector<Part> parts;
    const auto add = [&parts](std::int64_t firstDay, std::int64_t lastDay, MinuteRange minutes, std::size_t event) {
        firstDay = std::max(firstDay, kFirstDay);
        lastDay = std::min(lastDay, kLastDay);
        if (firstDay <= lastDay && minutes.start < minutes.end)
            parts.push_back({firstDay, lastDay, minutes, event});
    };
    for (std::size_t i = 0; i < events.size(); ++i) {
        const MPPSourceEvent& event = events[i];
        if (event.kind != MPPSourceEventKind::TimeOff || event.firstDay >= event.lastDay) {
            add(event.firstDay, event.lastDay, {event.start, event.end}, i);
            continue;
        }
        add(event.firstDay, event.firstDay, {event.start, kMinutesPerDay}, i);
        add(event.firstDay + 1, event.lastDay - 1, kWholeDay, i);
        add(event.lastDay, event.lastDay, {0, event.end}, i);
    }
    return parts;
}

std::vector<Edge> edgesOf(const std::vector<Part>& parts) {
    std::vector<Edge> edges;
    edges.reserve(2 * parts.size());
    for (const Part& part : parts) {
        edges.push_back({part.firstDay, true, &part});
        edges.push_back({part.lastDay + 1, false, &part});
    }
    std::stable_sort(edges.begin(), edges.end(),
                     [](const Edge& left, const Edge& right) { return left.day < right.day; });
    return edges;
}

/// Sweeps from edge to edge, between which the same parts are active.
class EventSweep {
public:
    EventSweep(const MPPCalendarSource& events, const CalendarDays& calendar) : _events(events), _calendar(calendar) {}

    std::vector<ExceptionDays> days();

private:
    void pass(const Edge& edge);
    void addDays(std::int64_t firstDay, std::int64_t lastDay);
    void addDay(std::int64_t firstDay, std::int64_t lastDay, MinuteRanges hours, const std::string& name);

    const MPPCalendarSource& _events;
    const CalendarDays& _calendar;
    std::multiset<std::size_t> _active; ///< indexes of the events
    std::size_t _activeHours = 0;       ///< how many of them define the day's hours
    MinuteCover _timeOff;
    MinuteCover _overtime;
    MinuteCover _hours;
    std::vector<ExceptionDays> _days;
};

std::vector<ExceptionDays> EventSweep::days() {
    const std::vector<Part> parts = partsOf(_events);
    const std::vector<Edge> edges = edgesOf(parts);
    for (auto edge = edges.begin(); edge != edges.end();) {
        const std::int64_t day = edge->day;
        for (; edge != edges.end() && edge->day == day; ++edge)
            pass(*edge);
        if (!_active.empty())
            addDays(day, edge->day - 1);
    }
    return std::move(_days);
}

void EventSweep::pass(const Edge& edge) {
    const MPPSourceEventKind kind = _events[edge.part->event].kind;
    MinuteCover& cover = kind == MPPSourceEventKind::TimeOff    ? _timeOff
                         : kind == MPPSourceEventKind::Overtime ? _overtime
                                                                : _hours;
    if (edge.begins) {
        cover.add(edge.part->minutes);
        _active.insert(edge.part->event);
        _activeHours += kind == MPPSourceEventKind::Hours ? 1 : 0;
    } else {
        cover.remove(edge.part->minutes);
        _active.erase(_active.find(edge.part->event));
        _activeHours -= kind == MPPSourceEventKind::Hours ? 1 : 0;
    }
}

void EventSweep::addDays(std::int64_t firstDay, std::int64_t lastDay) {
    const std::string& name = _events[*_active.begin()].name;
    const MinuteRanges timeOff = _timeOff.ranges();
    const MinuteRanges overtime = _overtime.ranges();
    const MinuteRanges hours = _hours.ranges();
    const auto remaining = [&](const MinuteRanges& regular) { return united(without(regular, timeOff), overtime); };
    const bool isOff = timeOff == MinuteRanges{kWholeDay};
    if (isOff || _activeHours > 0)
        return addDay(firstDay, lastDay, isOff ? overtime : remaining(hours), name);
    if (lastDay - firstDay >= kMostSingleDays) {
        WeekHours week;
        for (std::size_t weekday = 0; weekday < week.size(); ++weekday)
            week[weekday] = fittingTheFormat(remaining(_calendar.weekHoursOn(weekday)));
        _days.push_back({firstDay, lastDay, {}, name, std::move(week)});
        return;
    }
    for (std::int64_t day = firstDay; day <= lastDay; ++day)
        addDay(day, day, remaining(_calendar.regularHoursOn(day)), name);
}

// Adjacent days with equal hours form one exception.
void EventSweep::addDay(std::int64_t firstDay, std::int64_t lastDay, MinuteRanges hours, const std::string& name) {
    hours = fittingTheFormat(std::move(hours));
    const bool goesOn = !_days.empty() && _days.back().lastDay + 1 == firstDay && _days.back().hours == hours &&
                        _days.back().name == name;
    if (goesOn)
        _days.back().lastDay = lastDay;
    else
        _days.push_back({firstDay, lastDay, std::move(hours), name, {}});
}

} // namespace

std::vector<ExceptionDays> daysOfEvents(const MPPCalendarSource& events, const CalendarDays& calendar) {
    return EventSweep(events, calendar).days();
}

} // namespace brackwater
