#include "Platform/Threads/SideBySide.h"

#include "Platform/Log/FatalSignals.h"
#include "Platform/Values/Processors.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace brackwater {

SideBySide::SideBySide(std::vector<std::function<void()>> steps, int threads) : _reader(LogSink::innermost()) {
    _steps.reserve(steps.size());
    for (std::function<void()>& step : steps)
        _steps.push_back({std::move(step), {}, nullptr});
    const std::size_t useful = std::min(static_cast<std::size_t>(std::max(threads, 1)), _steps.size());
    if (useful > 1)
        startThreads(useful - 1);
}

SideBySide::~SideBySide() {
    _next = _steps.size();
    joinThreads();
}

void SideBySide::startThreads(std::size_t count) {
    _threads.reserve(count);
    // Only the exporting thread handles signals.
    const SignalsHeldBack heldBack;
    try {
        while (_threads.size() < count)
            _threads.emplace_back([this, processor = currentProcessor()] {
                leaveProcessor(processor);
                work();
            });
    } catch (const std::system_error&) {
        // Continues with the threads that could be started.
    }
}

void SideBySide::work() noexcept {
    for (std::size_t place = _next++; place < _steps.size(); place = _next++) {
        Step& step = _steps[place];
        LogCollector log(_reader);
        try {
            step.action();
        } catch (...) {
            step.failure = std::current_exception();
        }
        step.lines = log.take();
    }
}

void SideBySide::joinThreads() {
    for (std::thread& thread : _threads)
        thread.join();
    _threads.clear();
}

void SideBySide::take(std::size_t place) {
    Step& step = _steps.at(place);
    if (!_threads.empty()) {
        work();
        joinThreads();
        _areDone = true;
    }
    if (!_areDone)
        step.action();
    std::exchange(step.lines, {}).log();
    if (step.failure)
        std::rethrow_exception(std::exchange(step.failure, nullptr));
}

} // namespace brackwater
