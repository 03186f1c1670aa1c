#include "Platform/Log/Log.h"

#include "Platform/Log/FatalSignals.h"
#include "Platform/Log/LogLines.h"
#include "Platform/Log/LogThread.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <ctime>
#include <exception>
#include <pthread.h>
#include <span>
#include <string_view>
#include <unistd.h>

namespace brackwater {

namespace {

// A shorter log is written sooner than a thread is started.
constexpr int kFullBuffersBeforeThread = 4;

// Lines go into the buffer, and from the fourth full buffer on to the thread. Neither has a destructor: lines may still
// come while the objects that live as long as the process are destroyed.
constinit LogLines lines;
constinit LogThread thread;

constinit thread_local LogSink* innermostSink = nullptr;

// "YYYY-MM-DD HH:MM:SS.mmm Brackwater[pid] ", formatted anew when the second changes; the milliseconds are put in.
class Prefix {
public:
    /// Brings it up to the time.
    void advance() {
        timespec time{};
        // The coarse clock is a few milliseconds behind at most and costs a tenth: half of what a line costs otherwise.
        clock_gettime(CLOCK_REALTIME_COARSE, &time);
        if (time.tv_nsec == _nanosecond && time.tv_sec == _second)
            return;
        if (time.tv_sec != _second || _size == 0)
            format(time.tv_sec);
        setMilliseconds(time.tv_nsec);
    }
    [[nodiscard]] std::string_view text() const { return {_text.data(), _size}; }

private:
    static constexpr std::size_t kMilliseconds = std::string_view("YYYY-MM-DD HH:MM:SS.").size();

    void setMilliseconds(long nanosecond) {
        const auto milliseconds = static_cast<int>(nanosecond / 1'000'000);
        _text[kMilliseconds] = static_cast<char>('0' + milliseconds / 100);
        _text[kMilliseconds + 1] = static_cast<char>('0' + milliseconds / 10 % 10);
        _text[kMilliseconds + 2] = static_cast<char>('0' + milliseconds % 10);
        _nanosecond = nanosecond;
    }

    void format(std::time_t second) {
        std::tm fields{};
        localtime_r(&second, &fields);
        const auto written =
            fmt::format_to_n(_text.begin(), _text.size(), "{:04}-{:02}-{:02} {:02}:{:02}:{:02}.000 Brackwater[{}] ",
                             fields.tm_year + 1900, fields.tm_mon + 1, fields.tm_mday, fields.tm_hour, fields.tm_min,
                             fields.tm_sec, getpid());
        _size = std::min(written.size, _text.size());
        _second = second;
        _nanosecond = 0;
    }

    std::time_t _second = 0;
    long _nanosecond = 0;
    std::size_t _size = 0;
    std::array<char, 96> _text{};
};

constinit Prefix prefix;

constinit std::terminate_handler outerTerminateHandler = nullptr;

void flushAndTerminate() {
    flushLog();
    if (outerTerminateHandler != nullptr)
        outerTerminateHandler();
    std::abort();
}

void stopBuffering() {
    if (thread.isRunning())
        thread.end();
    lines.stopBuffering();
}

// The child of a fork has no threads, and what was logged before is its parent's to write.
void beginInChild() {
    thread.forget();
    lines.clear();
    prefix = Prefix();
}

void prepareForTheEnd() {
    if (std::atexit(stopBuffering) != 0 || isatty(STDERR_FILENO) == 1)
        lines.stopBuffering(); // no one would write out the rest at the end, or somebody waits for each line
    pthread_atfork(nullptr, nullptr, beginInChild);
    outerTerminateHandler = std::set_terminate(flushAndTerminate);
    prepareForFatalSignals();
}

void write(std::span<const std::string_view> pieces) {
    [[maybe_unused]] static const bool prepared = (prepareForTheEnd(), true);
    prefix.advance();
    if (thread.isRunning()) {
        thread.append(prefix.text(), pieces);
        return;
    }
    static constinit int fullBuffers = 0;
    if (lines.append(prefix.text(), pieces) && ++fullBuffers >= kFullBuffersBeforeThread && lines.isBuffering() &&
        thread.start())
        lines.flush();
}

} // namespace

bool isLogRead(std::string_view beginning) { return innermostSink == nullptr || innermostSink->wants(beginning); }

void logLine(std::string_view text) { logPieces({&text, 1}); }

void logPieces(std::span<const std::string_view> pieces) {
    if (innermostSink == nullptr)
        write(pieces);
    else if (!pieces.empty() && innermostSink->wants(pieces.front()))
        innermostSink->receive(fmt::format("{}", fmt::join(pieces, "")));
}

void logLines(std::string_view text, std::span<const std::size_t> sizes) {
    const bool isForThread = innermostSink == nullptr && thread.isRunning();
    if (isForThread)
        prefix.advance();
    for (const std::size_t size : sizes) {
        const std::string_view line = text.substr(0, size);
        text.remove_prefix(size);
        if (isForThread)
            thread.append(prefix.text(), {&line, 1});
        else
            logLine(line);
    }
}

char* beginLogLine(std::size_t size) {
    if (innermostSink != nullptr)
        return innermostSink->begin(size);
    if (!thread.isRunning())
        return nullptr;
    prefix.advance();
    return thread.begin(prefix.text(), size);
}

void endLogLine() noexcept {
    if (innermostSink == nullptr)
        thread.finish();
}

void logFormatted(fmt::string_view text, fmt::format_args arguments) {
    if (!isLogRead({text.data(), text.size()}))
        return;
    fmt::memory_buffer message;
    fmt::vformat_to(fmt::appender(message), text, arguments);
    logLine(std::string_view(message.data(), message.size()));
}

void flushLog() {
    lines.flush();
    if (thread.isRunning())
        thread.flush();
}

LogSink::LogSink() : _outer(innermostSink) { innermostSink = this; }

LogSink::~LogSink() { innermostSink = _outer; }

LogSink* LogSink::innermost() noexcept { return innermostSink; }

void LogSink::passOn(std::string_view text) const {
    if (_outer != nullptr)
        _outer->receive(text);
    else
        write({&text, 1});
}

} // namespace brackwater
