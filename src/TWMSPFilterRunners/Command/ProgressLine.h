#pragma once

#include "TWMSPFilterRunners/Command/ProgressBoard.h"

#include <chrono>
#include <cstddef>
#include <string_view>

namespace brackwater {

/// One updated line on the terminal: the number of finished bundles, and the progress of the current one.
class ProgressLine {
public:
    /// Shows nothing if `isShown` is false or standard error is not a terminal.
    explicit ProgressLine(bool isShown);

    /// Updates the line, at most ten times a second.
    void show(std::size_t done, std::size_t all, std::string_view bundle, const ProgressSlot& slot);
    /// Erases the line, so that another can be written.
    void clear();
    [[nodiscard]] bool isShown() const noexcept { return _isShown; }

private:
    bool _isShown;
    bool _stands = false;
    std::chrono::steady_clock::time_point _next;
};

} // namespace brackwater
