#include "TWMSPCommon/MSPExportMapper/Calendars/MSPEEventSweep.h"

#include "Platform/Values/Exception.h"

#include <algorithm>
#include <utility>

namespace brackwater {

namespace {

constexpr double kOneSecond = 1.0;
constexpr std::size_t kMostWorkingTimes = 100'000;

} // namespace

MSPEEventSweep::MSPEEventSweep(const std::vector<MSPEZelbEventInfo>& events) : _events(events) {
    if (events.empty())
        return;
    _cursor = events.front().fromDate();
    _rangeEnd = std::max_element(events.begin(), events.end(), [](const auto& left, const auto& right) {
                    return left.toDate() < right.toDate();
                })->toDate();
}

std::vector<MSPEExceptionInfo> MSPEEventSweep::pieces() {
    std::vector<MSPEExceptionInfo> pieces;
    std::size_t workingTimes = 0;
    while (_cursor < _rangeEnd) {
        beginEvents();
        endEvents();
        if (_activeEnds.empty()) {
            _cursor = hasUpcoming() ? _events[_upcoming].fromDate() : _rangeEnd;
            continue;
        }
        MSPEExceptionInfo& piece = pieces.emplace_back(_cursor, endOfPiece());
        piece.workingTimes() = activeWorkingTimes();
        workingTimes += piece.workingTimes().size();
        assertThat(workingTimes <= kMostWorkingTimes, "Events of one calendar overlap on more than {} occasions.",
                   kMostWorkingTimes);
        _cursor = piece.toDate().advancedBy(kOneSecond);
    }
    return pieces;
}

void MSPEEventSweep::beginEvents() {
    for (; hasUpcoming() && _events[_upcoming].fromDate() <= _cursor; ++_upcoming) {
        const MSPEZelbEventInfo& event = _events[_upcoming];
        if (event.toDate() < _cursor)
            continue;
        _activeEnds.push(event.toDate());
        if (event.hasTimeRange())
            _activeWithTimes.emplace(event.start(), &event);
    }
}

void MSPEEventSweep::endEvents() {
    while (!_activeEnds.empty() && _activeEnds.top() < _cursor)
        _activeEnds.pop();
}

Date MSPEEventSweep::endOfPiece() const {
    const Date end = _activeEnds.top();
    if (hasUpcoming() && _events[_upcoming].fromDate() < end)
        return _events[_upcoming].fromDate().advancedBy(-kOneSecond);
    return end;
}

MSPEWorkingTimes MSPEEventSweep::activeWorkingTimes() {
    std::erase_if(_activeWithTimes, [this](const auto& entry) { return entry.second->toDate() < _cursor; });
    MSPEWorkingTimes workingTimes;
    workingTimes.reserve(_activeWithTimes.size());
    for (const auto& [start, event] : _activeWithTimes)
        workingTimes.emplace_back(start, event->end());
    return workingTimes;
}

std::vector<MSPEExceptionInfo> joinTouchingExceptions(std::vector<MSPEExceptionInfo> exceptions) {
    std::vector<MSPEExceptionInfo> joined;
    joined.reserve(exceptions.size());
    for (MSPEExceptionInfo& exception : exceptions) {
        const bool touches = !joined.empty() && joined.back().toDate().advancedBy(kOneSecond) == exception.fromDate() &&
                             joined.back().workingTimes() == exception.workingTimes();
        if (touches)
            joined.back().setToDate(exception.toDate());
        else
            joined.push_back(std::move(exception));
    }
    return joined;
}

} // namespace brackwater
