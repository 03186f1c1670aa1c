#pragma once

namespace brackwater {

struct MPPProject;

/// Copies the source's values of the top task to the project's row, which replaces it. Must run before the passes that
/// read these values.
void keepTopTask(MPPProject& project);

} // namespace brackwater
