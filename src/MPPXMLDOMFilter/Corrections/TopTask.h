#pragma once

namespace brackwater {

struct MPPProject;

/// Keeps what the source tells of the top task in the project's row, which stands in for it. Comes before the passes
/// that read these values.
void keepTopTask(MPPProject& project);

} // namespace brackwater
