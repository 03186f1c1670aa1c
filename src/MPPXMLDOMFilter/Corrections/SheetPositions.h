#pragma once

namespace brackwater {

struct MPPProject;

/// Numbers the positions in the sheet in row order, as real files do. Otherwise readers that sort by position show all
/// tasks in one place, and derive parents and links from that.
void correctSheetPositions(MPPProject& project);

} // namespace brackwater
