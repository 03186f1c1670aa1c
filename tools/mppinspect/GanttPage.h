#pragma once

#include "GanttOptions.h"
#include "ProjectFile.h"
#include "TextOutput.h"

namespace brackwater::inspect {

/// The plan as one HTML page that needs nothing else: the outline as a table beside bars, links and baselines on a time
/// axis, and the calendars below. It prints on landscape pages, each with the axis at its head.
void writeGanttPage(const ProjectFile& project, const Sink& sink, const GanttOptions& options = {});

} // namespace brackwater::inspect
