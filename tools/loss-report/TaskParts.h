#pragma once

#include "loss-report/Comparison.h"

namespace brackwater::lossreport {

// Parts of the comparison of one task that has a row in the file.

[[nodiscard]] Subject subjectOf(const SourceTask& task);

/// For the top task, if it has become the project's row.
void compareAbsorbedTask(Comparison& comparison, const TaskPair& pair);
void compareConstraint(Comparison& comparison, const TaskPair& pair);
/// Work of the task, and how much of it is done.
void compareProgress(Comparison& comparison, const TaskPair& pair);
void compareTaskBaseline(Comparison& comparison, const TaskPair& pair);
void compareAssignments(Comparison& comparison, const TaskPair& pair);
/// In seconds; without the time between the pieces if the file has them.
[[nodiscard]] double durationWithoutPauses(const Comparison& comparison, const TaskPair& pair);
void compareSegments(Comparison& comparison, const TaskPair& pair);
void compareLinks(Comparison& comparison, const TaskPair& pair);

} // namespace brackwater::lossreport
