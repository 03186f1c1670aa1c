#pragma once

#include "ProjectFile.h"

namespace brackwater::inspect {

enum class Section { Summary, Entries, Properties, Tasks, Resources, Assignments, Links, Calendars, Complaints };

/// One section as text, with its heading line.
[[nodiscard]] std::string report(const ProjectFile& project, Section section);

} // namespace brackwater::inspect
