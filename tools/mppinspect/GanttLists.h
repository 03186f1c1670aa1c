#pragma once

#include "ProjectFile.h"
#include "TextOutput.h"

namespace brackwater::inspect {

/// Appends the lists that stand below a bar chart: the notes of tasks, the calendars, and the days with other times.
/// `calendar` is the project's and may be null.
void appendLists(TextOutput& out, const ProjectFile& project, const Calendar* calendar);

} // namespace brackwater::inspect
