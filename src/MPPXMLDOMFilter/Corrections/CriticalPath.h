#pragma once

namespace brackwater {

class AssignmentIndex;
struct MPPProject;

/// Gives each task its late dates, its slack and whether it is critical, by the critical-path method: readers show
/// these values as they stand in the file. The schedule stays as it is; no late date lies before it or after its end.
/// Slack is working time of the task's first worker, otherwise of the task's or the project's calendar. Done tasks have
/// none and are not critical; a summary is critical if one of its tasks is. A circle of links, and what comes before
/// it, stays without slack. Progress, summaries and the bounds of dates must be final.
void findCriticalPath(MPPProject& project, const AssignmentIndex& assignments);

} // namespace brackwater
