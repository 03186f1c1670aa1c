#include "TWMSPFilterRunners/Command/StopRequests.h"

#include <algorithm>
#include <cerrno>
#include <sys/signalfd.h>
#include <system_error>
#include <unistd.h>

namespace brackwater {

namespace {

/// The workers take one second of it at most.
constexpr auto kPatience = std::chrono::seconds(2);

sigset_t heededRequests() {
    sigset_t requests;
    sigemptyset(&requests);
    for (const int request : {SIGINT, SIGTERM, SIGHUP, SIGQUIT}) {
        struct sigaction present {};
        if (sigaction(request, nullptr, &present) == 0 && present.sa_handler != SIG_IGN)
            sigaddset(&requests, request);
    }
    return requests;
}

} // namespace

StopRequests::StopRequests() {
    const sigset_t requests = heededRequests();
    _requests = FileDescriptor(signalfd(-1, &requests, SFD_CLOEXEC | SFD_NONBLOCK));
    if (!_requests || sigprocmask(SIG_BLOCK, &requests, &_maskBefore) != 0)
        throw std::system_error(errno, std::generic_category(), "cannot wait for signals");
}

StopRequests::~StopRequests() { releaseInWorker(); }

int StopRequests::next() {
    signalfd_siginfo request{};
    if (read(_requests.get(), &request, sizeof(request)) != static_cast<ssize_t>(sizeof(request)))
        return 0;
    if (!_end)
        _end = std::chrono::steady_clock::now() + kPatience;
    return static_cast<int>(request.ssi_signo);
}

int StopRequests::patience() const {
    if (!_end)
        return -1;
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(*_end - std::chrono::steady_clock::now());
    return std::max(static_cast<int>(left.count()), 0);
}

void StopRequests::releaseInWorker() const { sigprocmask(SIG_SETMASK, &_maskBefore, nullptr); }

} // namespace brackwater
