#pragma once

#include "loss-report/Comparison.h"

namespace brackwater::lossreport {

// Parts of the comparison of one task, which has a row in the file.

[[nodiscard]] Subject subjectOf(const SourceTask& task);

/// Of the top task where it has become the project's row.
void compareAbsorbedTask(Comparison& comparison, const TaskPair& pair);
void compareConstraint(Comparison& comparison, const TaskPair& pair);
/// Work of the task, and how much of it is done.
void compareProgress(Comparison& comparison, const TaskPair& pair);
void compareTaskBaseline(Comparison& comparison, const TaskPair& pair);
void compareAssignments(Comparison& comparison, const TaskPair& pair);
/// In seconds; of a split task that the file shows in pieces without the time between them.
[[nodiscard]] double durationWithoutPauses(const Comparison& comparison, const TaskPair& pair);
void compareSegments(Comparison& comparison, const TaskPair& pair);
void compareLinks(Comparison& comparison, const TaskPair& pair);

} // namespace brackwater::lossreport
