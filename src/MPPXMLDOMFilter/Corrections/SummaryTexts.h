#pragma once

namespace brackwater {

struct MPPProject;

/// Lets the summary streams hold the title and the other texts with any characters, as other property sets do.
void correctSummaryTexts(MPPProject& project);

} // namespace brackwater
