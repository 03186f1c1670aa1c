#include "Platform/FatalSignals.h"

#include "Platform/Log.h"

#include <algorithm>
#include <array>
#include <unistd.h>
#include <utility>

namespace brackwater {

namespace {

constexpr std::array kRequests = {SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGXCPU};
constexpr std::array kFaults = {SIGABRT, SIGSEGV, SIGBUS, SIGFPE, SIGILL};

// Changed only while requests are held back, so that a handler finds the chain whole.
constinit FileRemovedAtSignal* newestFile = nullptr;

// What the handlers call may be called from signal handlers.
void die(int signalNumber) {
    flushLog();
    // The handler was taken off when it was entered (SA_RESETHAND), so this ends the process as the signal would have.
    static_cast<void>(raise(signalNumber));
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
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    sigemptyset(&action.sa_mask);
    sigaction(signalNumber, &action, nullptr);
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

bool FileRemovedAtSignal::isOneOfThem(std::string_view path) noexcept {
    const FileRemovedAtSignal* file = newestFile;
    while (file != nullptr && file->path() != path)
        file = file->older();
    return file != nullptr;
}

SignalsHeldBack::SignalsHeldBack() {
    sigset_t requests;
    sigemptyset(&requests);
    for (const int request : kRequests)
        sigaddset(&requests, request);
    sigprocmask(SIG_BLOCK, &requests, &_maskBefore);
}

SignalsHeldBack::~SignalsHeldBack() { sigprocmask(SIG_SETMASK, &_maskBefore, nullptr); }

} // namespace brackwater
