#pragma once

#include <string>

namespace brackwater {

/// Syncs a finished file to disk, moves it to the output's path on the same file system, and syncs the move. With
/// `replaces` it atomically replaces an existing file and keeps that file's mode. Otherwise it never replaces anything:
/// if the path is taken by now, the output gets the next free number. Returns the final path; raises std::system_error.
[[nodiscard]] std::string moveIntoPlace(const std::string& finishedPath, const std::string& outputPath, bool replaces);

} // namespace brackwater
