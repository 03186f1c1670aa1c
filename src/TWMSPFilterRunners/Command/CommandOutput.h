#pragma once

#include "TWMSPFilterRunners/Command/StoppableWrite.h"

#include <string_view>
#include <unistd.h>

namespace brackwater {

/// What the command tells people. An output that failed once is left alone from then on.
class CommandOutput {
public:
    /// A request that can be read from the descriptor ends the wait for a reader that does not read.
    explicit CommandOutput(int stopDescriptor) : _stopDescriptor(stopDescriptor) {}

    void print(std::string_view text) {
        _isWhole = _isWhole && writeUnlessStopped(STDOUT_FILENO, text, _stopDescriptor);
    }
    void printError(std::string_view text) {
        _takesErrors = _takesErrors && writeUnlessStopped(STDERR_FILENO, text, _stopDescriptor);
    }
    /// Whether standard output has all that was printed.
    [[nodiscard]] bool isWhole() const noexcept { return _isWhole; }

private:
    int _stopDescriptor;
    bool _isWhole = true;
    bool _takesErrors = true;
};

} // namespace brackwater
