#pragma once

#include <string>

namespace brackwater {

/// Moves a finished file to the output's path on the same file system, once its bytes are on the disk, and sees to it
/// that the move is as well. With `replaces` a file that stands there is replaced in one step and hands on its mode.
/// Otherwise nothing is ever replaced: where the path is taken by now, the output gets the next free number. Gives the
/// path that the file has got; raises std::system_error.
[[nodiscard]] std::string moveIntoPlace(const std::string& finishedPath, const std::string& outputPath, bool replaces);

} // namespace brackwater
