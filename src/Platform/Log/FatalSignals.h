#pragma once

#include <csignal>
#include <string>

namespace brackwater {

/// Sees to it that a signal which ends the process does so in order: files that must not stay behind are removed, the
/// log is written out, and the process then dies by the signal, so that whoever waits for it learns how it ended. A log
/// that nobody reads holds this up for one second at most, and a second signal ends the process at once.
/// Handlers that somebody else set, and signals that the parent process had ignored, stay as they are. Idempotent.
void prepareForFatalSignals();

/// A file that is removed if a request from outside (an interrupt, a hang-up, a termination) ends the process while the
/// object lives. A fault of the process itself removes nothing: what its memory holds can then not be trusted.
class FileRemovedAtSignal {
public:
    explicit FileRemovedAtSignal(std::string path);
    ~FileRemovedAtSignal();
    FileRemovedAtSignal(const FileRemovedAtSignal&) = delete;
    FileRemovedAtSignal& operator=(const FileRemovedAtSignal&) = delete;

    [[nodiscard]] const std::string& path() const noexcept { return _path; }
    /// The one that was made before this one, of those that live.
    [[nodiscard]] const FileRemovedAtSignal* older() const noexcept { return _older; }

private:
    std::string _path;
    FileRemovedAtSignal* _older;
};

/// Holds requests from outside back while it lives, for steps that must not be torn apart; they arrive at its end.
class SignalsHeldBack {
public:
    SignalsHeldBack();
    ~SignalsHeldBack();
    SignalsHeldBack(const SignalsHeldBack&) = delete;
    SignalsHeldBack& operator=(const SignalsHeldBack&) = delete;

private:
    sigset_t _maskBefore{};
};

} // namespace brackwater
