#pragma once

#include "MPPXMLDOMFilter/Model/MPPCalendar.h"

#include <cstdint>
#include <map>
#include <vector>

namespace brackwater {

/// Hours of a day in minutes since midnight, 0 to 1440.
struct MinuteRange {
    std::uint32_t start = 0;
    std::uint32_t end = 0;

    friend bool operator==(const MinuteRange&, const MinuteRange&) = default;
};

/// In order, apart from one another and none of them empty.
using MinuteRanges = std::vector<MinuteRange>;

inline constexpr std::uint32_t kMinutesPerDay = 24 * 60;

/// Counts how many spans cover a minute, so that spans can come and go in any order at small cost.
class MinuteCover {
public:
    void add(MinuteRange range) { change(range, 1); }
    void remove(MinuteRange range) { change(range, -1); }
    /// The minutes that at least one span covers.
    [[nodiscard]] MinuteRanges ranges() const;

private:
    void change(MinuteRange range, int by);
    void changeAt(std::uint32_t minute, int by);

    std::map<std::uint32_t, int> _changes; ///< of the number of spans, by minute
};

[[nodiscard]] MinuteRanges united(const MinuteRanges& left, const MinuteRanges& right);
[[nodiscard]] MinuteRanges without(const MinuteRanges& ranges, const MinuteRanges& taken);
/// Joins ranges over the smallest gaps until the format can hold them: five at most.
[[nodiscard]] MinuteRanges fittingTheFormat(MinuteRanges ranges);

/// A range that ends before it begins goes on to midnight.
[[nodiscard]] MinuteRange minutesOf(const MPPCalendarTimeRange& range);
/// What such a range covers of the next day.
[[nodiscard]] MinuteRange minutesBehindMidnightOf(const MPPCalendarTimeRange& range);
[[nodiscard]] MinuteRanges minutesOf(const MPPRangeList& ranges);
[[nodiscard]] MPPRangeList rangeListOf(const MinuteRanges& ranges);

} // namespace brackwater
