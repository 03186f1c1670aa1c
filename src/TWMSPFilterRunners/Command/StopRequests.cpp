#include "TWMSPFilterRunners/Command/StopRequests.h"

#include <cerrno>
#include <sys/signalfd.h>
#include <system_error>
#include <unistd.h>

namespace brackwater {

namespace {

sigset_t heededRequests() {
    sigset_t requests;
    sigemptyset(&requests);
    for (const int request : {SIGINT, SIGTERM, SIGHUP}) {
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
        throw std::system_error(errno, std::generic_category(), "signals cannot be waited for");
}

StopRequests::~StopRequests() { releaseInWorker(); }

int StopRequests::next() const {
    signalfd_siginfo request{};
    const ssize_t got = read(_requests.get(), &request, sizeof(request));
    return got == static_cast<ssize_t>(sizeof(request)) ? static_cast<int>(request.ssi_signo) : 0;
}

void StopRequests::releaseInWorker() const { sigprocmask(SIG_SETMASK, &_maskBefore, nullptr); }

} // namespace brackwater
