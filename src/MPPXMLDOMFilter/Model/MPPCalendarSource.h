#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace brackwater {

/// The effect of a source event on the hours of its days.
enum class MPPSourceEventKind {
    TimeOff,  ///< nobody works from its start on the first day to its end on the last
    Overtime, ///< its hours are worked on each of its days, in addition to the regular ones
    Hours,    ///< its hours replace those of each of its days
};

/// An exception to a calendar's week as in the source. Days are counted from 1970-01-01 in local time of the system
/// zone, times of day in minutes since midnight; 1440 ends a day.
struct MPPSourceEvent {
    MPPSourceEventKind kind = MPPSourceEventKind::TimeOff;
    std::string name; ///< empty if the source has none
    std::int64_t firstDay = 0;
    std::int64_t lastDay = 0;
    std::uint32_t start = 0;
    std::uint32_t end = 0;
};

/// The events of a calendar in the order of the source, its own or inherited.
using MPPCalendarSource = std::vector<MPPSourceEvent>;

} // namespace brackwater
