#pragma once

#include "mppinspect/ProjectFile.h"

#include <string>

namespace brackwater::test {

/// The build's template with the layout of the folder "   112" or "   114".
[[nodiscard]] std::string templateOfLayout(const std::string& layout);

/// A written file, decoded. Link numbers continue through all exports of a process: here they restart from 1.
[[nodiscard]] inspect::ProjectFile decodedFile(const std::string& path);

/// The text form of a file, without the template properties that an export leaves alone, and with masked GUIDs, which
/// are random.
[[nodiscard]] std::string textOf(const inspect::ProjectFile& project);

} // namespace brackwater::test
