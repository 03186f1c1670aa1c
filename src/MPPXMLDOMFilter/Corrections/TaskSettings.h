#pragma once

namespace brackwater {

struct MPPProject;

/// Marks tasks with children as summaries, with fixed duration and not effort driven.
void correctSummaryMarks(MPPProject& project);

/// How tasks are scheduled: effort driven only if the source says so, with the resources' calendars, and with a second
/// bound as the deadline; also sets the creation time.
void correctTaskSettings(MPPProject& project);

} // namespace brackwater
