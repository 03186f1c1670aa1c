#pragma once

#include "mppinspect/ProjectFile.h"

#include <string>

namespace brackwater::test {

/// The template that the build makes for the layout of the folder "   112" or "   114".
[[nodiscard]] std::string templateOfLayout(const std::string& layout);

/// A written file, decoded. Links are numbered through all exports of a process: here from 1.
[[nodiscard]] inspect::ProjectFile decodedFile(const std::string& path);

/// What a file tells of its project, without the properties of the template that an export leaves alone, and with
/// GUIDs, which are random, masked.
[[nodiscard]] std::string textOf(const inspect::ProjectFile& project);

} // namespace brackwater::test
