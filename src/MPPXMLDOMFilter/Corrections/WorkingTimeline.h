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

/// All working time of a calendar as one line that can be measured: its exceptions and weeks, and those of the
/// calendars that it derives from. An exception goes before a week, the calendar's own before its base's. Hours are
/// wall clock of the system zone; parts of a second do not count. Each question costs a search among the exceptions,
/// however far its dates lie apart.
class WorkingTimeline {
public:
    explicit WorkingTimeline(const MPPCalendar& calendar);

    /// The moment at which so many seconds of working time are over, `start` itself for none. Where that uses a working
    /// range up, it is the range's end. Nothing where the calendar never works that much.
    [[nodiscard]] std::optional<Date> advance(Date start, double seconds) const;
    /// `from` where work goes on then, else the begin of the next range. Nothing where the calendar never works again.
    [[nodiscard]] std::optional<Date> nextWorkingMoment(Date from) const;
    /// 0 where `to` is not the later.
    [[nodiscard]] double workingSecondsBetween(Date from, Date to) const;

    /// Seconds since midnight.
    struct Range {
        std::int64_t begin;
        std::int64_t end;
    };
    using Hours = std::vector<Range>; ///< of a day: rising, apart from each other

    static constexpr std::size_t kDaysOfWeek = 7;

    /// A week of hours, Sunday first; an exception's has the same hours on all days.
    struct Week {
        std::array<std::size_t, kDaysOfWeek> hours{};       ///< places in the list of hours
        std::array<std::int64_t, kDaysOfWeek + 1> before{}; ///< seconds of the week before each day, and of all of it
    };
    /// A run of days with one week; it ends where the next one begins.
    struct Stretch {
        std::int64_t firstDay;
        std::size_t week;
        std::int64_t workBefore; ///< seconds from the line's begin on
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

/// The timelines of calendars, each made when it is asked for first. A calendar that says nothing of its own shares its
/// base's. The calendars must outlive it.
class WorkingTimelines {
public:
    [[nodiscard]] const WorkingTimeline& ofCalendar(const MPPCalendar& calendar);

private:
    std::unordered_map<const MPPCalendar*, std::unique_ptr<const WorkingTimeline>> _timelines;
};

} // namespace brackwater
