#pragma once

#include "loss-report/PlanMatch.h"
#include "loss-report/WallClock.h"

#include <vector>

namespace brackwater::lossreport {

/// Days, and their working or free hours.
struct SourceException {
    std::int64_t firstDay = 0, lastDay = 0; ///< since 1983-12-31, both inclusive
    SourceSpan hours;
    std::string_view name;
    bool overtime = false;
    bool wholeDay = false; ///< `hours` are all working hours of the day, or the day is off
};

/// A schedule, including what it inherits from the groups above.
class SourceCalendar {
public:
    /// The schedule of a resource of the match, which must outlive the calendar.
    SourceCalendar(const PlanMatch& match, std::size_t resource) : _match(&match), _resource(resource) {}

    /// Hours of a weekday that no schedule defines.
    [[nodiscard]] static const SourceSpans& usual(std::size_t weekday);
    /// Regular hours of a weekday, 0 is Sunday.
    [[nodiscard]] const SourceSpans& week(std::size_t weekday) const;
    /// Whether the schedule itself defines the weekday.
    [[nodiscard]] bool hasOwn(std::size_t weekday) const;
    /// Index of the resource whose exceptions apply.
    [[nodiscard]] std::size_t owner() const;
    /// The schedule's own; for a group without exceptions, those of the nearest group above.
    [[nodiscard]] std::vector<SourceException> exceptions(const WallClock& clock) const;

private:
    const PlanMatch* _match;
    std::size_t _resource;
};

/// Spans in order, with overlapping and adjacent ones joined.
[[nodiscard]] SourceSpans united(SourceSpans spans);
[[nodiscard]] SourceSpans without(const SourceSpans& spans, const SourceSpans& removed);
/// "08:00-12:00 13:00-17:00", or "free".
[[nodiscard]] std::string textOf(const SourceSpans& spans);

} // namespace brackwater::lossreport
