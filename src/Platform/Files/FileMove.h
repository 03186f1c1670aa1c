#pragma once

#include <string>

namespace brackwater {

enum class FileMove {
    Done,
    Taken,  ///< the destination exists
    Failed, ///< with the reason in errno
};

/// Moves a file within its file system. Never replaces an existing destination, not even a dangling link.
[[nodiscard]] FileMove moveWithoutReplacing(const std::string& fromPath, const std::string& toPath);

} // namespace brackwater
