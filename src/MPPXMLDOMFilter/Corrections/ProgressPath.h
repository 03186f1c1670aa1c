#pragma once

#include "MPPXMLDOMFilter/Model/MPPTask.h"
#include "Platform/Time/Date.h"

#include <vector>

namespace brackwater {

class WorkingTimeline;

/// Where work that is begun has stopped, and where it goes on. Both are the end when all is done.
struct ProgressMoments {
    Date stop;
    Date resume;
};

/// The way of a task's progress from its start to its end: one piece, or the pieces of a split task.
class ProgressPath {
public:
    /// Along the working time of a calendar; without one, or where it does not work within the task, time passes
    /// evenly. `line` may be null and must outlive the path.
    ProgressPath(const MPPTask& task, const WorkingTimeline* line);

    /// A task without dates has no way.
    [[nodiscard]] bool isEmpty() const noexcept { return _pieces.empty(); }
    /// Of a fraction above 0; the path is not empty.
    [[nodiscard]] ProgressMoments momentsOf(double fraction) const;
    /// How the percentage grew up to the fraction: its begin and end in each piece, and that it grows no more.
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
