#pragma once

#include "ProjectFile.h"
#include "TextOutput.h"

namespace brackwater::inspect {

/// The whole file as one JSON object. The same file gives the same text.
void writeJson(const ProjectFile& project, const Sink& sink);

} // namespace brackwater::inspect
