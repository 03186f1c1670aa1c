#include "Platform/Log/FatalSignals.h"

#include "Platform/Log/Log.h"

#include <algorithm>
#include <array>
#include <unistd.h>
#include <utility>

namespace brackwater {

namespace {

constexpr std::array kRequests = {SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGXCPU};
constexpr std::array kFaults = {SIGABRT, SIGSEGV, SIGBUS, SIGFPE, SIGILL};
constexpr unsigned kMostSecondsForTheLog = 1;

// Changed only while requests are held back, so that a handler finds the chain whole.
constinit FileRemovedAtSignal* newestFile = nullptr;

constinit volatile std::sig_atomic_t endingSignal = 0;

// What the handlers call may be called from signal handlers.

void setHandler(int signalNumber, void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    // The signal itself is not held back while its handler runs, so that it ends the process when it comes again.
    action.sa_flags = static_cast<int>(SA_RESETHAND | SA_NODEFER);
    sigemptyset(&action.sa_mask);
    sigaction(signalNumber, &action, nullptr);
}

void endNow(int) { static_cast<void>(raise(endingSignal)); }

void die(int signalNumber) {
    endingSignal = signalNumber;
    // From here on each signal does what it does without us; this one too, whose handler was taken off on its entry.
    for (const int request : kRequests)
        setHandler(request, SIG_DFL);
    setHandler(SIGALRM, endNow);
    sigset_t alarms; // which the process may have been started to hold back
    sigemptyset(&alarms);
    sigaddset(&alarms, SIGALRM);
    sigprocmask(SIG_UNBLOCK, &alarms, nullptr);
    alarm(kMostSecondsForTheLog);
    flushLog();
    endNow(SIGALRM);
}

void cleanAndDie(int signalNumber) {
    for (const FileRemovedAtSignal* file = newestFile; file != nullptr; file = file->older())
        unlink(file->path().c_str());
    die(signalNumber);
}

void handle(int signalNumber, void (*handler)(int)) {
    struct sigaction present {};
    if (sigaction(signalNumber, nullptr, &present) != 0 || (present.sa_flags & SA_SIGINFO) != 0 ||
        present.sa_handler != SIG_DFL)
        return;
    setHandler(signalNumber, handler);
}

} // namespace

void prepareForFatalSignals() {
    [[maybe_unused]] static const bool prepared = [] {
        std::for_each(kRequests.begin(), kRequests.end(), [](int request) { handle(request, cleanAndDie); });
        std::for_each(kFaults.begin(), kFaults.end(), [](int fault) { handle(fault, die); });
        return true;
    }();
}

FileRemovedAtSignal::FileRemovedAtSignal(std::string path) : _path(std::move(path)), _older(newestFile) {
    prepareForFatalSignals();
    const SignalsHeldBack heldBack;
    newestFile = this;
}

FileRemovedAtSignal::~FileRemovedAtSignal() {
    const SignalsHeldBack heldBack;
    FileRemovedAtSignal** link = &newestFile;
    while (*link != this)
        link = &(*link)->_older;
    *link = _older;
}

SignalsHeldBack::SignalsHeldBack() {
    sigset_t requests;
    sigemptyset(&requests);
    for (const int request : kRequests)
        sigaddset(&requests, request);
    // A thread that holds requests back must not get the alarm either: it could not raise the request.
    sigaddset(&requests, SIGALRM);
    pthread_sigmask(SIG_BLOCK, &requests, &_maskBefore);
}

SignalsHeldBack::~SignalsHeldBack() { pthread_sigmask(SIG_SETMASK, &_maskBefore, nullptr); }

} // namespace brackwater
