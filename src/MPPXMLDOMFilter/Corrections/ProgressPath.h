#pragma once

#include "MPPXMLDOMFilter/Model/MPPTask.h"
#include "Platform/Time/Date.h"

#include <vector>

namespace brackwater {

class WorkingTimeline;

/// Where started work has stopped and where it resumes. Both are the end if all work is done.
struct ProgressMoments {
    Date stop;
    Date resume;
};

/// The progress of a task from start to end: one piece, or the pieces of a split task.
class ProgressPath {
public:
    /// Along the working time of a calendar; without a calendar, or if it has no working time within the task, time
    /// passes evenly. `line` may be null and must outlive the path.
    ProgressPath(const MPPTask& task, const WorkingTimeline* line);

    /// True for a task without dates.
    [[nodiscard]] bool isEmpty() const noexcept { return _pieces.empty(); }
    /// For a fraction above 0; the path must not be empty.
    [[nodiscard]] ProgressMoments momentsOf(double fraction) const;
    /// The growth of the percentage up to the fraction: its start and end in each piece, and the end of all growth.
    [[nodiscard]] std::vector<MPPProgressPoint> pointsOf(double fraction) const;

private:
    struct Piece {
        Date start;
        Date end;
        double work; ///< seconds
    };

    void addPiece(Date start, Date end);
    [[nodiscard]] Date momentWithin(const Piece& piece, double work) const;
    [[nodiscard]] Date nextMoment(Date from, const Piece& piece) const;

    const WorkingTimeline* _line;
    std::vector<Piece> _pieces;
    double _work = 0; ///< of all pieces
};

} // namespace brackwater
