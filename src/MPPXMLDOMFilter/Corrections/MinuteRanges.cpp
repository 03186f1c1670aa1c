#include "MPPXMLDOMFilter/Corrections/MinuteRanges.h"

#include <algorithm>
#include <iterator>
#include <memory>

namespace brackwater {

namespace {

constexpr std::size_t kMostRanges = 5;

std::uint32_t minuteOf(const std::optional<MPPCalendarTime>& time) {
    return time ? std::uint32_t{time->hours()} * 60 + time->minutes() : 0;
}

MPPCalendarTime timeOf(std::uint32_t minute) {
    MPPCalendarTime time;
    time.setHours(static_cast<std::uint8_t>(minute / 60)); // 24:00 is 00:00 in the format
    time.setMinutes(static_cast<std::uint8_t>(minute % 60));
    return time;
}

} // namespace

void MinuteCover::change(MinuteRange range, int by) {
    if (range.start >= range.end)
        return;
    changeAt(range.start, by);
    changeAt(range.end, -by);
}

void MinuteCover::changeAt(std::uint32_t minute, int by) {
    const auto entry = _changes.try_emplace(minute, 0).first;
    entry->second += by;
    if (entry->second == 0)
        _changes.erase(entry);
}

MinuteRanges MinuteCover::ranges() const {
    MinuteRanges ranges;
    int spans = 0;
    for (const auto& [minute, change] : _changes) {
        if (spans == 0)
            ranges.push_back({minute, minute});
        spans += change;
        if (spans == 0)
            ranges.back().end = minute;
    }
    return ranges;
}

MinuteRanges united(const MinuteRanges& left, const MinuteRanges& right) {
    MinuteCover cover;
    for (const MinuteRanges* ranges : {&left, &right})
        for (const MinuteRange& range : *ranges)
            cover.add(range);
    return cover.ranges();
}

MinuteRanges without(const MinuteRanges& ranges, const MinuteRanges& taken) {
    MinuteRanges left;
    auto next = taken.begin();
    for (const MinuteRange& range : ranges) {
        std::uint32_t from = range.start;
        while (next != taken.end() && next->end <= from)
            ++next;
        for (auto cut = next; cut != taken.end() && cut->start < range.end; ++cut) {
            if (from < cut->start)
                left.push_back({from, cut->start});
            from = cut->end;
        }
        if (from < range.end)
            left.push_back({from, range.end});
    }
    return left;
}

MinuteRanges fittingTheFormat(MinuteRanges ranges) {
    while (ranges.size() > kMostRanges) {
        auto smallest = ranges.begin();
        for (auto range = ranges.begin(); std::next(range) != ranges.end(); ++range)
            if (std::next(range)->start - range->end < std::next(smallest)->start - smallest->end)
                smallest = range;
        smallest->end = std::next(smallest)->end;
        ranges.erase(std::next(smallest));
    }
    return ranges;
}

MinuteRange minutesOf(const MPPCalendarTimeRange& range) {
    const std::uint32_t start = minuteOf(range.start);
    const std::uint32_t end = minuteOf(range.end);
    const bool isThroughMidnight = end == 0 || end < start;
    return {start, isThroughMidnight ? kMinutesPerDay : end};
}

MinuteRange minutesBehindMidnightOf(const MPPCalendarTimeRange& range) {
    const std::uint32_t end = minuteOf(range.end);
    return {0, end < minuteOf(range.start) ? end : 0};
}

MinuteRanges minutesOf(const MPPRangeList& ranges) {
    MinuteCover cover;
    for (const auto& range : ranges)
        cover.add(minutesOf(*range));
    return cover.ranges();
}

MPPRangeList rangeListOf(const MinuteRanges& ranges) {
    MPPRangeList list;
    list.reserve(ranges.size());
    for (const MinuteRange& range : ranges)
        list.push_back(std::make_shared<MPPCalendarTimeRange>(
            MPPCalendarTimeRange{.start = timeOf(range.start), .end = timeOf(range.end)}));
    return list;
}

} // namespace brackwater
