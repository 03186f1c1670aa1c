#pragma once

namespace brackwater {

struct MPPProject;

/// Marks the tasks that have children as summaries, of a fixed duration and not driven by effort.
void correctSummaryMarks(MPPProject& project);

/// How the tasks are scheduled: driven by effort only where the source says so, with the resources' calendars, with a
/// second bound as their deadline; and the moment of their making.
void correctTaskSettings(MPPProject& project);

} // namespace brackwater
