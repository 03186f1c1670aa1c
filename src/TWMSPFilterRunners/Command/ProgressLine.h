#pragma once

#include "TWMSPFilterRunners/Command/ProgressBoard.h"

#include <chrono>
#include <cstddef>
#include <string_view>

namespace brackwater {

/// One line on the terminal that is rewritten: bundles done of all, and how far the running one is.
class ProgressLine {
public:
    /// Shows nothing where `isShown` is false or standard error is no terminal.
    explicit ProgressLine(bool isShown);

    /// Rewrites the line, ten times a second at most.
    void show(std::size_t done, std::size_t all, std::string_view bundle, const ProgressSlot& slot);
    /// Takes the line away, so that another can be written.
    void clear();
    [[nodiscard]] bool isShown() const noexcept { return _isShown; }

private:
    bool _isShown;
    bool _stands = false;
    std::chrono::steady_clock::time_point _next;
};

} // namespace brackwater
