#pragma once

#include "ProjectFile.h"

namespace brackwater::inspect {

/// What a block of an assignment's work over time says of one, of work that is left or of work that is done.
struct PhaseBlock {
    std::vector<WorkPhase> phases;
    std::uint16_t contour = 0; ///< only of work that is left
};

/// Work that is left, from the assignment's "resume" on. Work without entries of its own is one phase.
[[nodiscard]] PhaseBlock remainingWork(ByteView block, const std::string& assignment, Complaints& complaints);
/// Work that is done, from the assignment's start on.
[[nodiscard]] PhaseBlock completeWork(ByteView block, const std::string& assignment, Complaints& complaints);

/// Derives the pieces of each assignment and task from the phases and the calendars.
void arrangePieces(ProjectFile& project);

} // namespace brackwater::inspect
