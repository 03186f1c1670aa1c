#pragma once

#include <atomic>
#include <cstddef>
#include <exception>
#include <functional>
#include <string>
#include <thread>
#include <vector>

namespace brackwater {

/// Steps that are done side by side and taken one after the other. What a step logged and what it threw come where it
/// is taken, so that a log is the same for any number of threads.
///
/// No other threads than these log, and none of theirs outlives the object. A step must not touch what another step or
/// its maker changes meanwhile.
class SideBySide {
public:
    /// Begins the steps on at most `threads` threads, of which the caller's is one. With one thread, one step, or where
    /// no thread can be had, each step is done where it is taken.
    SideBySide(std::vector<std::function<void()>> steps, int threads);
    /// Waits for the steps that have begun; the others are not done.
    ~SideBySide();
    SideBySide(const SideBySide&) = delete;
    SideBySide& operator=(const SideBySide&) = delete;

    /// Logs what the step logged, and throws what it threw. The first call does what is left of all steps.
    void take(std::size_t step);

private:
    struct Step {
        std::function<void()> action;
        std::vector<std::string> lines;
        std::exception_ptr failure;
    };

    void startThreads(std::size_t count);
    void work() noexcept;
    void joinThreads();

    std::vector<Step> _steps;
    std::atomic<std::size_t> _next = 0; ///< of the steps that nobody has begun
    std::vector<std::thread> _threads;
    bool _areDone = false;
};

} // namespace brackwater
