#pragma once

#include "Platform/Time/Date.h"
#include "TWMSPCommon/MSPExportMapper/Calendars/MSPECalendarEvents.h"

#include <cstddef>
#include <functional>
#include <map>
#include <queue>
#include <vector>

namespace brackwater {

/// Splits overlapping events into disjoint pieces. A cursor sweeps through time; wherever an event begins or ends, a
/// piece ends, and each piece gets the times of day of all events that are active in it. The next piece begins one
/// second after the end of the last.
///
/// The cost is linear in the pieces and their times of day, plus sorting the events. The number of times is limited: if
/// all events overlap, each piece has those of all.
class MSPEEventSweep {
public:
    /// `events` must be sorted by `fromDate` and outlive the sweep.
    explicit MSPEEventSweep(const std::vector<MSPEZelbEventInfo>& events);

    /// Raises an exception if the pieces have too many times of day.
    [[nodiscard]] std::vector<MSPEExceptionInfo> pieces();

private:
    /// Updates the active events to the cursor.
    void beginEvents();
    void endEvents();
    [[nodiscard]] bool hasUpcoming() const noexcept { return _upcoming < _events.size(); }
    /// The last second before an active event ends or an upcoming one begins.
    [[nodiscard]] Date endOfPiece() const;
    [[nodiscard]] MSPEWorkingTimes activeWorkingTimes();

    const std::vector<MSPEZelbEventInfo>& _events;
    Date _cursor;
    Date _rangeEnd;
    std::size_t _upcoming = 0; ///< the first event that begins after the cursor
    /// The ends of the active events, the earliest on top.
    std::priority_queue<Date, std::vector<Date>, std::greater<>> _activeEnds;
    /// Active events with times of day, by start and then in list order. The next piece removes events that have ended.
    std::multimap<double, const MSPEZelbEventInfo*> _activeWithTimes;
};

/// Joins adjacent exceptions with equal working times: the later one begins one second after the earlier one ends.
[[nodiscard]] std::vector<MSPEExceptionInfo> joinTouchingExceptions(std::vector<MSPEExceptionInfo> exceptions);

} // namespace brackwater
