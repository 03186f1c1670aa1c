#pragma once

#include "ProjectFile.h"

#include <array>

namespace brackwater::inspect {

enum class Section { Summary, Entries, Properties, Tasks, Resources, Assignments, Links, Calendars, Complaints };
inline constexpr std::array kAllSections{Section::Summary, Section::Entries,   Section::Properties,
                                         Section::Tasks,   Section::Resources, Section::Assignments,
                                         Section::Links,   Section::Calendars, Section::Complaints};

/// One section as text, with its heading line. Its tables are as wide as their texts need, or fit the width.
[[nodiscard]] std::string report(const ProjectFile& project, Section section, std::size_t width = 0);
/// The table of a section as comma-separated values.
[[nodiscard]] std::string csv(const ProjectFile& project, Section section);

} // namespace brackwater::inspect
