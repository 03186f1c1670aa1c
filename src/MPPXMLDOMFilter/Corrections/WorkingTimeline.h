#pragma once

#include "Platform/Time/Date.h"
#include "Platform/Time/TimeZone.h"

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

namespace brackwater {

struct MPPCalendar;

/// All working time of a calendar as one measurable line: its exceptions and weeks, and those of its base calendars. An
/// exception takes precedence over a week, the calendar's own over its base's. Hours are local time in the system zone;
/// fractions of seconds are ignored. Each query is a search among the exceptions, however far apart its dates are.
class WorkingTimeline {
public:
    explicit WorkingTimeline(const MPPCalendar& calendar);

    /// The moment after this many working seconds; `start` itself for none. If that uses up a working range, the end of
    /// the range. Nothing if the calendar never has that much working time.
    [[nodiscard]] std::optional<Date> advance(Date start, double seconds) const;
    /// `from` if it is working time, otherwise the start of the next range. Nothing if there is no more working time.
    [[nodiscard]] std::optional<Date> nextWorkingMoment(Date from) const;
    /// 0 if `to` is not later.
    [[nodiscard]] double workingSecondsBetween(Date from, Date to) const;

    /// Seconds since midnight.
    struct Range {
        std::int64_t begin;
        std::int64_t end;
    };
    using Hours = std::vector<Range>; ///< of a day: sorted and disjoint

    static constexpr std::size_t kDaysOfWeek = 7;

    /// A week of hours, Sunday first; the week of an exception has the same hours on all days.
    struct Week {
        std::array<std::size_t, kDaysOfWeek> hours{}; ///< indexes in the list of hours
        std::array<std::int64_t, kDaysOfWeek + 1>
            before{}; ///< seconds of the week before each day, and of the whole week
    };
    /// A run of days with one week; it ends at the start of the next.
    struct Stretch {
        std::int64_t firstDay;
        std::size_t week;
        std::int64_t workBefore; ///< seconds since the start of the line
    };

private:
    class Builder;

    [[nodiscard]] std::int64_t wallSecondOf(Date date) const;
    [[nodiscard]] std::int64_t workUntil(std::int64_t wallSecond) const;
    [[nodiscard]] std::optional<Date> momentWhenDone(std::int64_t work) const;

    TimeZone _zone = TimeZone::system();
    std::vector<Hours> _hours;
    std::vector<Week> _weeks;
    std::vector<Stretch> _stretches; ///< at least one; the first begins before all dates
};

/// The timelines of calendars, each created on first use. A calendar without own settings shares its base's. The
/// calendars must outlive it.
class WorkingTimelines {
public:
    [[nodiscard]] const WorkingTimeline& ofCalendar(const MPPCalendar& calendar);

private:
    std::unordered_map<const MPPCalendar*, std::unique_ptr<const WorkingTimeline>> _timelines;
};

} // namespace brackwater
