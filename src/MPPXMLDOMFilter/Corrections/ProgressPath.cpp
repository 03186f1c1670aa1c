#include "MPPXMLDOMFilter/Corrections/ProgressPath.h"

#include "MPPXMLDOMFilter/Corrections/WorkingTimeline.h"

#include <algorithm>

namespace brackwater {

namespace {

// The percentage before the task begins, as in real files.
constexpr double kBeforeBegin = 32768.0;

} // namespace

ProgressPath::ProgressPath(const MPPTask& task, const WorkingTimeline* line) : _line(line) {
    if (task.source)
        for (const MPPSourceSegment& segment : task.source->segments)
            if (segment.start && segment.end)
                addPiece(*segment.start, *segment.end);
    if (_pieces.empty() && task.startDate && task.endDate) {
        addPiece(*task.startDate, std::max(*task.startDate, *task.endDate));
        // For an unbroken task, the source's own duration takes precedence over the calendar's.
        _work = _pieces.front().work = task.duration;
    }
}

// Drops pieces that are out of order.
void ProgressPath::addPiece(Date start, Date end) {
    if (end < start || (!_pieces.empty() && start < _pieces.back().end))
        return;
    const double work = _line ? _line->workingSecondsBetween(start, end) : end.secondsSince(start);
    _pieces.push_back({start, end, work});
    _work += work;
}

ProgressMoments ProgressPath::momentsOf(double fraction) const {
    const Date end = _pieces.back().end;
    if (fraction >= 1)
        return {end, end};
    double work = _work * fraction;
    std::size_t i = 0;
    while (i + 1 < _pieces.size() && work > _pieces[i].work)
        work -= _pieces[i++].work;
    const Date stop = momentWithin(_pieces[i], work);
    const bool isAtPause = stop == _pieces[i].end && i + 1 < _pieces.size();
    return {stop, isAtPause ? nextMoment(_pieces[i + 1].start, _pieces[i + 1]) : nextMoment(stop, _pieces[i])};
}

Date ProgressPath::momentWithin(const Piece& piece, double work) const {
    if (_line && _line->workingSecondsBetween(piece.start, piece.end) > 0)
        return std::min(_line->advance(piece.start, work).value_or(piece.end), piece.end);
    return piece.work > 0 ? piece.start.advancedBy(piece.end.secondsSince(piece.start) * work / piece.work)
                          : piece.start;
}

Date ProgressPath::nextMoment(Date from, const Piece& piece) const {
    return _line ? std::min(_line->nextWorkingMoment(from).value_or(piece.end), piece.end) : from;
}

std::vector<MPPProgressPoint> ProgressPath::pointsOf(double fraction) const {
    const Date stop = momentsOf(fraction).stop;
    std::vector<MPPProgressPoint> points{{true, kBeforeBegin, _pieces.front().start}};
    double work = 0;
    for (std::size_t i = 0; i + 1 < _pieces.size() && _pieces[i].end < stop; ++i) {
        work += _pieces[i].work;
        const double percent = work / _work * 100.0;
        points.push_back({false, percent, _pieces[i].end});
        points.push_back({true, percent, _pieces[i + 1].start});
    }
    points.push_back({false, fraction * 100.0, stop});
    points.push_back({true, fraction * 100.0, std::nullopt});
    return points;
}

} // namespace brackwater
