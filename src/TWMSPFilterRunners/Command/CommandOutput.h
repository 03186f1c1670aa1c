#pragma once

#include "TWMSPFilterRunners/Command/StoppableWrite.h"

#include <string_view>
#include <unistd.h>

namespace brackwater {

/// The command's messages to people. Does not write to an output again after a failure.
class CommandOutput {
public:
    /// Stop requests end the wait for a slow reader. Null: they end the process.
    explicit CommandOutput(const StopRequests* requests) : _requests(requests) {}

    void print(std::string_view text) { _isWhole = _isWhole && writeUnlessStopped(STDOUT_FILENO, text, _requests); }
    void printError(std::string_view text) {
        _takesErrors = _takesErrors && writeUnlessStopped(STDERR_FILENO, text, _requests);
    }
    /// Whether everything was written to standard output.
    [[nodiscard]] bool isWhole() const noexcept { return _isWhole; }

private:
    const StopRequests* _requests;
    bool _isWhole = true;
    bool _takesErrors = true;
};

} // namespace brackwater
