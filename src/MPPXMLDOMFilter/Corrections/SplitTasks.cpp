#include "MPPXMLDOMFilter/Corrections/SplitTasks.h"

#include "MPPXMLDOMFilter/Corrections/WorkingTimeline.h"
#include "MPPXMLDOMFilter/Model/MPPProject.h"

#include <algorithm>

namespace brackwater {

namespace {

// Each piece takes a phase and a gap, which the file counts in 16 bits.
constexpr std::size_t kMostPieces = 30'000;

constexpr double kSecondsOfHour = 3600.0;
constexpr double kFullUnits = 10000.0;

/// A span of time with an even work rate.
struct Piece {
    Date begin;
    Date end;
    double rate; ///< work per second of working time, in any unit
};

using Pieces = std::vector<Piece>;

/// The parts of the pieces between two moments.
Pieces clipped(const Pieces& pieces, Date from, Date to) {
    Pieces result;
    for (const Piece& piece : pieces)
        if (piece.begin < to && from < piece.end)
            result.push_back({std::max(piece.begin, from), std::min(piece.end, to), piece.rate});
    return result;
}

/// Hours of work spread over pieces, measured from `origin`.
MPPWorkSpread spreadOver(const Pieces& pieces, Date origin, double work, double units, const WorkingTimeline& line) {
    double whole = 0;
    for (const Piece& piece : pieces)
        whole += piece.rate * line.workingSecondsBetween(piece.begin, piece.end);

    MPPWorkSpread spread{work, work > 0 ? units : 0, 0, {}};
    double done = 0;
    Date reached = origin;
    for (const Piece& piece : pieces) {
        if (const double pause = line.workingSecondsBetween(reached, piece.begin); pause > 0) {
            spread.elapsed += pause;
            spread.phases.push_back({done, 0, spread.elapsed});
        }
        reached = piece.end;
        const double seconds = line.workingSecondsBetween(piece.begin, piece.end);
        const double share = whole > 0 ? work * piece.rate * seconds / whole : 0;
        if (!(share > 0))
            continue;
        done += share;
        spread.elapsed += seconds;
        spread.phases.push_back({done, share * kSecondsOfHour / seconds * kFullUnits, spread.elapsed});
    }
    if (done > 0)
        spread.phases.back().work = work; // exactly, despite rounding errors in the shares
    else
        spread.phases.clear();
    return spread;
}

Pieces piecesOfSplitTask(const MPPTask& task, const WorkingTimeline& line) {
    Pieces pieces;
    for (const MPPSourceSegment& segment : task.source->segments) {
        const double seconds = line.workingSecondsBetween(*segment.start, *segment.end);
        pieces.push_back({*segment.start, *segment.end, seconds > 0 ? segment.effort / seconds : 0});
    }
    // If no piece has an effort, all have the same rate.
    if (std::ranges::all_of(pieces, [](const Piece& piece) { return !(piece.rate > 0); }))
        for (Piece& piece : pieces)
            piece.rate = 1;
    return pieces;
}

class WorkSpreader {
public:
    explicit WorkSpreader(const MPPCalendar* standardCalendar) : _standardCalendar(standardCalendar) {}

    void spread(MPPAssignment& assignment) {
        const MPPTask* task = assignment.task.record();
        const WorkingTimeline* line = lineOf(assignment);
        if (task == nullptr || line == nullptr || !assignment.startDate || !assignment.finishDate)
            return;
        const Date start = *assignment.startDate;
        const Date finish = *assignment.finishDate;
        const Pieces pieces = task->isSplit ? piecesOfSplitTask(*task, *line) : Pieces{{start, finish, 1}};
        const Date stop = assignment.stopDate.value_or(start);
        const Date resume = assignment.actualWork > 0 ? assignment.resumeDate.value_or(stop) : start;
        const Date end = std::max(finish, pieces.back().end);

        auto spread = std::make_unique<MPPWorkOverTime>();
        spread->isSplit = task->isSplit;
        if (assignment.actualWork > 0)
            spread->actual = spreadOver(clipped(pieces, start, stop), start, assignment.actualWork,
                                        assignment.assignmentUnits, *line);
        if (assignment.remainingWork > 0)
            spread->planned = spreadOver(clipped(pieces, resume, end), resume, assignment.remainingWork,
                                         assignment.assignmentUnits, *line);
        // Without a gap, the sum describes the rest.
        if (spread->planned.phases.size() == 1)
            spread->planned.phases.clear();
        assignment.workOverTime = std::move(spread);
    }

private:
    const WorkingTimeline* lineOf(const MPPAssignment& assignment) {
        const MPPResource* resource = assignment.resource.record();
        const MPPCalendar* own = resource ? resource->calendar.record() : nullptr;
        const MPPCalendar* calendar = own ? own : _standardCalendar;
        return calendar ? &_lines.ofCalendar(*calendar) : nullptr;
    }

    const MPPCalendar* _standardCalendar;
    WorkingTimelines _lines;
};

/// Keeps only the pieces that have dates and are in order.
void keepOrderlyPieces(std::vector<MPPSourceSegment>& segments) {
    std::optional<Date> reached;
    std::erase_if(segments, [&reached](const MPPSourceSegment& segment) {
        if (!segment.start || !segment.end || !(*segment.start < *segment.end) ||
            (reached && *segment.start < *reached))
            return true;
        reached = segment.end;
        return false;
    });
}

} // namespace

void markSplitTasks(MPPProject& project) {
    for (const auto& task : project.tasks) {
        if (!task->source || task->source->segments.empty())
            continue;
        auto& segments = task->source->segments;
        keepOrderlyPieces(segments);
        if (segments.size() < 2 || segments.size() > kMostPieces) {
            segments.clear();
            continue;
        }
        task->isSplit = true;
        double duration = 0;
        for (const MPPSourceSegment& segment : segments)
            duration += segment.duration;
        if (duration > 0)
            task->duration = duration;
    }
}

void spreadWork(MPPProject& project) {
    WorkSpreader spreader(project.standardCalendar.get());
    for (const auto& assignment : project.assignments)
        spreader.spread(*assignment);
}

} // namespace brackwater
