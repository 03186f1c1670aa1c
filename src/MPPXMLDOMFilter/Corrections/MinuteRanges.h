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

/// Sorted, disjoint, none empty.
using MinuteRanges = std::vector<MinuteRange>;

inline constexpr std::uint32_t kMinutesPerDay = 24 * 60;

/// Counts how many spans cover each minute, so that spans can be added and removed cheaply in any order.
class MinuteCover {
public:
    void add(MinuteRange range) { change(range, 1); }
    void remove(MinuteRange range) { change(range, -1); }
    /// The minutes covered by at least one span.
    [[nodiscard]] MinuteRanges ranges() const;

private:
    void change(MinuteRange range, int by);
    void changeAt(std::uint32_t minute, int by);

    std::map<std::uint32_t, int> _changes; ///< changes of the count, by minute
};

[[nodiscard]] MinuteRanges united(const MinuteRanges& left, const MinuteRanges& right);
[[nodiscard]] MinuteRanges without(const MinuteRanges& ranges, const MinuteRanges& taken);
/// Closes the smallest gaps until at most five ranges remain, the format's limit.
[[nodiscard]] MinuteRanges fittingTheFormat(MinuteRanges ranges);

/// A range that ends before it begins lasts until midnight.
[[nodiscard]] MinuteRange minutesOf(const MPPCalendarTimeRange& range);
/// The part of such a range on the next day.
[[nodiscard]] MinuteRange minutesBehindMidnightOf(const MPPCalendarTimeRange& range);
[[nodiscard]] MinuteRanges minutesOf(const MPPRangeList& ranges);
[[nodiscard]] MPPRangeList rangeListOf(const MinuteRanges& ranges);

} // namespace brackwater
