#pragma once

#include "loss-report/PlanMatch.h"
#include "loss-report/WallClock.h"

#include <vector>

namespace brackwater::lossreport {

/// Days, and the hours of each of them that are worked or free.
struct SourceException {
    std::int64_t firstDay = 0, lastDay = 0; ///< since 1983-12-31, both included
    SourceSpan hours;
    std::string_view name;
    bool overtime = false;
    bool wholeDay = false; ///< `hours` are all that is worked on the day, or the day is off
};

/// What a schedule says, with what it takes from the groups above.
class SourceCalendar {
public:
    /// The schedule of a resource of the match. The calendar looks at the match as long as it lives.
    SourceCalendar(const PlanMatch& match, std::size_t resource) : _match(&match), _resource(resource) {}

    /// Hours of a weekday of which nobody says anything.
    [[nodiscard]] static const SourceSpans& usual(std::size_t weekday);
    /// Regular hours of a weekday, 0 is Sunday.
    [[nodiscard]] const SourceSpans& week(std::size_t weekday) const;
    /// Whether the schedule itself names the weekday.
    [[nodiscard]] bool hasOwn(std::size_t weekday) const;
    /// Place of the resource whose exceptions hold here.
    [[nodiscard]] std::size_t owner() const;
    /// Those of the schedule itself; of a group that has none those of the nearest group above.
    [[nodiscard]] std::vector<SourceException> exceptions(const WallClock& clock) const;

private:
    const PlanMatch* _match;
    std::size_t _resource;
};

/// Spans in order, overlapping and touching ones joined.
[[nodiscard]] SourceSpans united(SourceSpans spans);
[[nodiscard]] SourceSpans without(const SourceSpans& spans, const SourceSpans& removed);
/// "08:00-12:00 13:00-17:00", or "free".
[[nodiscard]] std::string textOf(const SourceSpans& spans);

} // namespace brackwater::lossreport
