#pragma once

#include "TWMSPFilterRunners/Command/FileDescriptor.h"

#include <chrono>
#include <csignal>
#include <optional>

namespace brackwater {

/// During its lifetime, termination signals (SIGINT, SIGTERM, SIGHUP, SIGQUIT) wait until queried, except those that
/// the process was started to ignore.
class StopRequests {
public:
    /// Raises std::system_error.
    StopRequests();
    ~StopRequests();
    StopRequests(const StopRequests&) = delete;
    StopRequests& operator=(const StopRequests&) = delete;

    /// Readable when a request has arrived.
    [[nodiscard]] int descriptor() const noexcept { return _requests.get(); }
    /// The signal number of the next request; 0 if there is none. Does not wait.
    [[nodiscard]] int next();
    /// Milliseconds left to wait for readers of the outputs; -1 before the first request.
    [[nodiscard]] int patience() const;
    /// In a new process: requests end it as usual.
    void releaseInWorker() const;

private:
    sigset_t _maskBefore{};
    FileDescriptor _requests;
    std::optional<std::chrono::steady_clock::time_point> _end; ///< of patience
};

} // namespace brackwater
