#pragma once

#include "Entry.h"

namespace brackwater::layout {

/// Folder of the rows: its number decides which forms of calendars and links an export writes.
enum class VersionFolder { Project2007 = 112, Project2010 = 114 };

/// The entries of the root of a template: a complete file with an empty project.
[[nodiscard]] std::vector<Entry> templateTree(VersionFolder folder);

} // namespace brackwater::layout
