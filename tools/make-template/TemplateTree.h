#pragma once

#include "Entry.h"

namespace brackwater::layout {

/// The folder of the rows: its number selects the layout of calendars and links in exports.
enum class VersionFolder { Project2007 = 112, Project2010 = 114 };

/// The entries of the root of a template: a complete file with an empty project.
[[nodiscard]] std::vector<Entry> templateTree(VersionFolder folder);

} // namespace brackwater::layout
