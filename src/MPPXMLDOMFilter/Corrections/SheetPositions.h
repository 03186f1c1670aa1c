#pragma once

namespace brackwater {

struct MPPProject;

/// Counts the places in the sheet on in the order of the rows, as real files do. Readers that sort by the place show
/// all tasks in one place otherwise, and derive parents and links from it.
void correctSheetPositions(MPPProject& project);

} // namespace brackwater
