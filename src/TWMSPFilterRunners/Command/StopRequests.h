#pragma once

#include "TWMSPFilterRunners/Command/FileDescriptor.h"

#include <csignal>

namespace brackwater {

/// While it lives, requests to end (SIGINT, SIGTERM, SIGHUP) wait until they are asked for, but for those that the
/// process was started to ignore.
class StopRequests {
public:
    /// Raises std::system_error.
    StopRequests();
    ~StopRequests();
    StopRequests(const StopRequests&) = delete;
    StopRequests& operator=(const StopRequests&) = delete;

    /// Can be read from when a request has come.
    [[nodiscard]] int descriptor() const noexcept { return _requests.get(); }
    /// The number of the next request's signal; 0 without one. Does not wait.
    [[nodiscard]] int next() const;
    /// In a new process: requests end it as usual.
    void releaseInWorker() const;

private:
    sigset_t _maskBefore{};
    FileDescriptor _requests;
};

} // namespace brackwater
