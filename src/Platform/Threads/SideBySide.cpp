#include "Platform/Threads/SideBySide.h"

#include "Platform/Log/FatalSignals.h"
#include "Platform/Log/Log.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace brackwater {

namespace {

class LineCollector : public LogSink {
public:
    explicit LineCollector(std::vector<std::string>& lines) : _lines(lines) {}
    void receive(std::string_view text) override { _lines.emplace_back(text); }

private:
    std::vector<std::string>& _lines;
};

} // namespace

SideBySide::SideBySide(std::vector<std::function<void()>> steps, int threads) {
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
            _threads.emplace_back([this] { work(); });
    } catch (const std::system_error&) {
        // Continues with the threads that could be started.
    }
}

void SideBySide::work() noexcept {
    for (std::size_t place = _next++; place < _steps.size(); place = _next++) {
        Step& step = _steps[place];
        try {
            const LineCollector log(step.lines);
            step.action();
        } catch (...) {
            step.failure = std::current_exception();
        }
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
    for (const std::string& line : std::exchange(step.lines, {}))
        logLine(std::string_view(line));
    if (step.failure)
        std::rethrow_exception(std::exchange(step.failure, nullptr));
}

} // namespace brackwater
