#pragma once

#include "Check.h"
#include "TextOutput.h"
#include "TextReport.h"

#include <span>

namespace brackwater::inspect {

/// These sections of the file as JSON. docs/json.md tells the keys.
void writeJson(const ProjectFile& project, const Sink& sink, std::span<const Section> sections = kAllSections);
/// The findings of a check as JSON.
void writeJson(const Findings& findings, const Sink& sink);

} // namespace brackwater::inspect
