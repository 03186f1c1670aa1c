#include "loss-report/Comparison.h"
#include "loss-report/SourceCalendar.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>
#include <stdexcept>
#include <unordered_set>

namespace brackwater::lossreport {

namespace {

constexpr std::array<std::string_view, 7> kWeekdays{"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                    "Thursday", "Friday", "Saturday"};
constexpr std::size_t kFirstWeekday = 6; // of day 0, 1983-12-31
constexpr std::int64_t kDaysOfWeek = 7;
constexpr std::int64_t kSecondsOfTenth = 6;
/// Exceptions of all days together: where they overlap without measure, each further day costs more than the last.
constexpr std::size_t kMostToCompare = 1'000'000;

std::size_t weekdayOf(std::int64_t day) {
    return static_cast<std::size_t>((day % kDaysOfWeek + kDaysOfWeek + static_cast<std::int64_t>(kFirstWeekday)) %
                                    kDaysOfWeek);
}

SourceSpans spansOf(const std::vector<inspect::TimeRange>& ranges) {
    SourceSpans spans;
    for (const inspect::TimeRange& range : ranges)
        spans.push_back({range.start * kSecondsOfTenth, range.end * kSecondsOfTenth});
    return united(std::move(spans));
}

/// Documents have times in whole minutes.
SourceSpans inWholeMinutes(SourceSpans spans) {
    for (SourceSpan& span : spans)
        span = {span.start / 60 * 60, span.end / 60 * 60};
    return united(std::move(spans));
}

bool isSame(const SourceSpans& source, const SourceSpans& file) {
    return united(source) == file || inWholeMinutes(source) == file;
}

/// A calendar's exceptions in the file, sorted by first day.
using Exceptions = std::vector<const inspect::CalendarException*>;

Exceptions inOrder(const std::vector<inspect::CalendarException>& exceptions) {
    Exceptions sorted;
    for (const inspect::CalendarException& exception : exceptions)
        sorted.push_back(&exception);
    std::ranges::stable_sort(sorted, {}, &inspect::CalendarException::firstDay);
    return sorted;
}

const inspect::CalendarException* exceptionOf(const Exceptions& exceptions, std::int64_t day) {
    const auto behind = std::ranges::upper_bound(
        exceptions, day, {}, [](const auto* exception) { return std::int64_t{exception->firstDay}; });
    return behind == exceptions.begin() || (*(behind - 1))->lastDay < day ? nullptr : *(behind - 1);
}

/// The combined effect of the exceptions on one day.
struct DayHours {
    SourceSpans worked, off;
    bool isWhole = false; ///< they define the whole day

    explicit DayHours(const std::vector<const SourceException*>& active) {
        for (const SourceException* one : active) {
            (one->overtime ? worked : off).push_back(one->hours);
            isWhole = isWhole || one->wholeDay;
        }
    }
    /// The working time of a day with these regular hours.
    [[nodiscard]] SourceSpans expected(const SourceSpans& regular) const {
        SourceSpans hours = isWhole ? SourceSpans() : without(regular, off);
        hours.insert(hours.end(), worked.begin(), worked.end());
        return united(std::move(hours));
    }
};

/// Compares one schedule with its calendar in the file.
class CalendarComparison {
public:
    /// `told` lists the losses already reported for the schedules from which this one inherits exceptions.
    CalendarComparison(Comparison& comparison, const SourceCalendar& source, const inspect::Calendar& file,
                       Subject subject, std::unordered_set<std::string>& told)
        : _comparison(comparison), _source(source), _file(file), _subject(subject), _told(told),
          _exceptions(inOrder(file.exceptions)),
          _base(file.baseId ? comparison.match.calendar(*file.baseId) : nullptr) {
        if (_base != nullptr)
            _ofBase = inOrder(_base->exceptions);
    }

    /// `all`: also the days that the schedule inherits from its group.
    void compareWeek(bool all) {
        for (std::size_t day = 0; day < kWeekdays.size(); ++day) {
            if (!all && !_source.hasOwn(day))
                continue;
            const SourceSpans inFile = regularInFile(day);
            if (!isSame(_source.week(day), inFile))
                _comparison.add(_subject, Kind::Week, kWeekdays.at(day), textOf(_source.week(day)), textOf(inFile));
        }
    }

    void compareExceptions() {
        std::vector<SourceException> exceptions = _source.exceptions(_comparison.clock());
        std::ranges::stable_sort(exceptions, {}, &SourceException::firstDay);
        std::vector<const SourceException*> active;
        auto next = exceptions.begin();
        std::size_t compared = 0;
        for (const std::int64_t day : daysToLookAt(exceptions)) {
            for (; next != exceptions.end() && next->firstDay <= day; ++next)
                active.push_back(&*next);
            std::erase_if(active, [day](const SourceException* exception) { return exception->lastDay < day; });
            compared += active.size();
            if (compared > kMostToCompare)
                throw std::runtime_error("the events of a calendar overlap too often to be compared");
            if (!active.empty())
                compareDay(day, active);
        }
    }

private:
    // The first days of each exception, up to one of each weekday, and the last one.
    static std::set<std::int64_t> daysToLookAt(const std::vector<SourceException>& exceptions) {
        std::set<std::int64_t> days;
        for (const SourceException& exception : exceptions) {
            for (std::int64_t day = exception.firstDay;
                 day <= exception.lastDay && day < exception.firstDay + kDaysOfWeek; ++day)
                days.insert(day);
            if (exception.lastDay >= exception.firstDay)
                days.insert(exception.lastDay);
        }
        return days;
    }

    SourceSpans regularInFile(std::size_t weekday) const {
        for (const inspect::Calendar* calendar : {&_file, _base})
            if (calendar != nullptr && calendar->week.at(weekday))
                return spansOf(*calendar->week.at(weekday));
        return SourceCalendar::usual(weekday);
    }

    // A resource also has the exceptions of its group, if it has none itself.
    void compareDay(std::int64_t day, const std::vector<const SourceException*>& active) {
        const std::size_t weekday = weekdayOf(day);
        const inspect::CalendarException *own = exceptionOf(_exceptions, day), *ofBase = exceptionOf(_ofBase, day);
        const inspect::CalendarException* exception = own != nullptr ? own : ofBase;
        const SourceSpans inFile = exception == nullptr ? regularInFile(weekday) : spansOf(exception->ranges);
        const DayHours hours(active);
        const SourceSpans& regular = _source.week(weekday);
        const bool isOfGroup = ofBase != nullptr && isSame(hours.expected(spansOf(ofBase->ranges)), inFile);
        if (!isOfGroup)
            compareHours(day, hours.expected(regular), inFile, hours, active);
        if (own != nullptr && !isSame(regular, inFile))
            compareName(day, *own, active);
    }

    void compareHours(std::int64_t day, const SourceSpans& expected, const SourceSpans& inFile, const DayHours& hours,
                      const std::vector<const SourceException*>& active) {
        if (isSame(expected, inFile))
            return;
        Kind kind = Kind::Unexplained;
        if (!WallTime{day * 86'400}.isInRange())
            kind = Kind::DateRange;
        else if (!hours.off.empty() && inFile.empty())
            kind = Kind::HoursOff;
        else if (!hours.worked.empty() && isSame(hours.worked, inFile))
            kind = Kind::Overtime;
        add(kind, fieldOf(day, active), textOf(expected), textOf(inFile));
    }

    void add(Kind kind, const std::string& field, const std::string& source, const std::string& inFile) {
        const std::string loss = fmt::format("{}\n{}\n{}\n{}", _source.owner(), field, source, inFile);
        if (_told.insert(loss).second)
            _comparison.add(_subject, kind, field, source, inFile);
    }

    void compareName(std::int64_t day, const inspect::CalendarException& exception,
                     const std::vector<const SourceException*>& active) {
        const bool isTold = std::ranges::any_of(
            active, [&](const SourceException* one) { return one->name == exception.name || one->wholeDay; });
        if (!isTold)
            add(Kind::ExceptionName, WallTime{day * 86'400}.text().substr(0, 10), std::string(active.front()->name),
                exception.name);
    }

    static std::string fieldOf(std::int64_t day, const std::vector<const SourceException*>& active) {
        const std::string date = WallTime{day * 86'400}.text().substr(0, 10);
        return active.front()->name.empty() ? date : fmt::format("{}, {}", date, active.front()->name);
    }

    Comparison& _comparison;
    const SourceCalendar& _source;
    const inspect::Calendar& _file;
    Subject _subject;
    std::unordered_set<std::string>& _told;
    Exceptions _exceptions, _ofBase;
    const inspect::Calendar* _base;
};

/// Finds the calendar of each schedule and compares them.
class CalendarsComparison {
public:
    explicit CalendarsComparison(Comparison& comparison) : _comparison(comparison) {
        for (const inspect::Calendar& calendar : comparison.file.calendars)
            if (!calendar.resourceId && !calendar.name.empty())
                _byName.try_emplace(calendar.name, &calendar);
    }

    void run() {
        tellOfBase();
        findBases();
        for (std::size_t i = 0; i < _comparison.match.resources().size(); ++i)
            compare(i);
    }

private:
    [[nodiscard]] const ResourcePair& pair(std::size_t place) const { return _comparison.match.resources()[place]; }

    void tellOfBase() {
        for (const inspect::Calendar& calendar : _comparison.file.calendars)
            if (calendar.resourceId == 0U && !calendar.baseId)
                _comparison.add({"calendar", "", ""}, Kind::CalendarBase, "base", "the plan's calendar", "none");
    }

    /// A group's calendar is the base of its members'.
    void findBases() {
        _calendars.resize(_comparison.match.resources().size());
        for (std::size_t i = 0; i < _calendars.size(); ++i) {
            const inspect::Resource* resource = pair(i).file;
            if (resource == nullptr || !resource->calendarId)
                continue;
            _calendars[i] = _comparison.match.calendar(*resource->calendarId);
            if (_calendars[i] != nullptr && _calendars[i]->baseId && pair(i).parent)
                _calendars[*pair(i).parent] = _comparison.match.calendar(*_calendars[i]->baseId);
        }
        constexpr std::uint32_t standard = 1;
        if (!_calendars.empty() && _calendars.front() == nullptr)
            _calendars.front() = _comparison.match.calendar(standard);
        for (std::size_t i = 1; i < _calendars.size(); ++i)
            if (const auto named = _byName.find(pair(i).source->name);
                _calendars[i] == nullptr && pair(i).source->isGroup() && named != _byName.end())
                _calendars[i] = named->second;
    }

    void compare(std::size_t place) {
        const SourceResource& resource = *pair(place).source;
        const bool isTop = !pair(place).parent;
        const Subject subject{"calendar", resource.id, isTop && resource.name.empty() ? "Standard" : resource.name};
        const inspect::Calendar* calendar = _calendars[place];
        if (calendar == nullptr)
            return tellOfMissing(subject, resource);
        if (resource.isGroup() && !isTop && calendar->name.empty())
            _comparison.add(subject, Kind::NamelessGroup, "name", "", "");
        const SourceCalendar source(_comparison.match, place);
        CalendarComparison comparison(_comparison, source, *calendar, subject, _told);
        comparison.compareWeek(resource.isGroup());
        comparison.compareExceptions();
    }

    void tellOfMissing(const Subject& subject, const SourceResource& resource) {
        const bool hasMembers = !resource.children.empty();
        if (resource.schedule)
            _comparison.add(subject, hasMembers ? Kind::Unexplained : Kind::GroupData, "schedule", "own hours", "");
    }

    Comparison& _comparison;
    std::unordered_map<std::string_view, const inspect::Calendar*> _byName;
    std::unordered_set<std::string> _told;
    std::vector<const inspect::Calendar*> _calendars; ///< for each resource of the match
};

} // namespace

void compareCalendars(Comparison& comparison) { CalendarsComparison(comparison).run(); }

} // namespace brackwater::lossreport
