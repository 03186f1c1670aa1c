#pragma once

#include <string>

namespace brackwater {

enum class FileMove {
    Done,
    Taken,  ///< something stands at the destination
    Failed, ///< errno tells why
};

/// Moves a file within its file system. What stands at the destination, a link that leads nowhere included, is never
/// replaced.
[[nodiscard]] FileMove moveWithoutReplacing(const std::string& fromPath, const std::string& toPath);

} // namespace brackwater
