#pragma once

#include "Platform/Log/LogCollector.h"

#include <atomic>
#include <cstddef>
#include <exception>
#include <functional>
#include <thread>
#include <vector>

namespace brackwater {

/// Steps that run in parallel and are taken one by one. The log lines and exceptions of a step appear when it is taken,
/// so that the log is the same for any number of threads.
///
/// No other threads log, and none of these outlives the object. A step must not touch data that another step or the
/// owner changes meanwhile.
class SideBySide {
public:
    /// Starts the steps on at most `threads` threads, including the caller's. With one thread or one step, or if no
    /// thread can be started, each step runs when it is taken.
    SideBySide(std::vector<std::function<void()>> steps, int threads);
    /// Waits for the steps that have started; the others never run.
    ~SideBySide();
    SideBySide(const SideBySide&) = delete;
    SideBySide& operator=(const SideBySide&) = delete;

    /// Writes the step's log lines and throws its exception. The first call runs all remaining steps.
    void take(std::size_t step);

private:
    struct Step {
        std::function<void()> action;
        CollectedLines lines;
        std::exception_ptr failure;
    };

    void startThreads(std::size_t count);
    void work() noexcept;
    void joinThreads();

    const LogSink* _reader; ///< of the log lines
    std::vector<Step> _steps;
    std::atomic<std::size_t> _next = 0; ///< the next step to start
    std::vector<std::thread> _threads;
    bool _areDone = false;
};

} // namespace brackwater
