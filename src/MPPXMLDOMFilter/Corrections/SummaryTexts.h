#pragma once

namespace brackwater {

struct MPPProject;

/// Has the summary streams hold the title and the other texts whatever their characters, as other property sets do.
void correctSummaryTexts(MPPProject& project);

} // namespace brackwater
