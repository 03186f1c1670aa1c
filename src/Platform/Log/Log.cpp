#include "Platform/Log/Log.h"

#include "Platform/Log/FatalSignals.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <exception>
#include <poll.h>
#include <span>
#include <string_view>
#include <unistd.h>

namespace brackwater {

namespace {

constexpr int kStandardError = 2;

// Bytes taken, 0 to try again, or -1. What standard error does not take is lost: there is nowhere left to tell it.
ssize_t writeSome(const char* bytes, std::size_t size) noexcept {
    const ssize_t written = write(kStandardError, bytes, size);
    if (written >= 0)
        return written;
    if (errno == EAGAIN) {
        pollfd ready{kStandardError, POLLOUT, 0};
        poll(&ready, 1, -1);
        return 0;
    }
    return errno == EINTR ? 0 : -1;
}

void writeAll(std::string_view bytes) noexcept {
    while (!bytes.empty()) {
        const ssize_t written = writeSome(bytes.data(), bytes.size());
        if (written < 0)
            return;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

// Lines on their way to standard error. A signal handler may flush between any two steps: a line counts only once it
// stands whole in the buffer, and leaves it only once it is written.
class LineBuffer {
public:
    void append(std::string_view prefix, std::span<const std::string_view> pieces) noexcept {
        std::size_t size = prefix.size() + 1;
        for (const std::string_view piece : pieces)
            size += piece.size();
        if (size > _bytes.size() - _filled)
            flush();
        if (size > _bytes.size()) {
            writeAll(prefix);
            for (const std::string_view piece : pieces)
                writeAll(piece);
            writeAll("\n");
            return;
        }
        char* end = std::copy(prefix.begin(), prefix.end(), _bytes.data() + _filled);
        for (const std::string_view piece : pieces)
            end = std::copy(piece.begin(), piece.end(), end);
        *end = '\n';
        std::atomic_signal_fence(std::memory_order_seq_cst);
        _filled = _filled + size;
        if (_unbuffered)
            flush();
    }

    void flush() noexcept {
        while (_written < _filled) {
            const ssize_t written = writeSome(_bytes.data() + _written, _filled - _written);
            if (written < 0)
                break;
            _written = _written + static_cast<std::size_t>(written);
        }
        _filled = 0;
        _written = 0;
    }

    /// From here on each line is written at once.
    void stopBuffering() noexcept {
        _unbuffered = true;
        flush();
    }

private:
    std::array<char, std::size_t{1} << 16> _bytes{};
    volatile std::size_t _filled = 0;
    volatile std::size_t _written = 0;
    volatile bool _unbuffered = false;
};

// Has no destructor: lines may still come while the objects that live as long as the process are destroyed.
constinit LineBuffer lineBuffer;

constinit LogSink* innermostSink = nullptr;

// "YYYY-MM-DD HH:MM:SS.mmm Brackwater[pid] ", formatted anew when the second changes; the milliseconds are put in.
class Prefix {
public:
    std::string_view now() {
        timespec time{};
        // The coarse clock is a few milliseconds behind at most and costs a tenth: half of what a line costs otherwise.
        clock_gettime(CLOCK_REALTIME_COARSE, &time);
        if (time.tv_sec != _second || _size == 0)
            format(time.tv_sec);
        if (time.tv_nsec != _nanosecond)
            setMilliseconds(time.tv_nsec);
        return {_text.data(), _size};
    }

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

void prepareForTheEnd() {
    if (std::atexit([] { lineBuffer.stopBuffering(); }) != 0)
        lineBuffer.stopBuffering(); // no one would write out the rest at the end
    outerTerminateHandler = std::set_terminate(flushAndTerminate);
    prepareForFatalSignals();
    if (isatty(kStandardError) == 1)
        lineBuffer.stopBuffering();
}

void writeToStandardError(std::span<const std::string_view> pieces) {
    [[maybe_unused]] static const bool prepared = (prepareForTheEnd(), true);
    lineBuffer.append(prefix.now(), pieces);
}

} // namespace

bool isLogRead(std::string_view beginning) { return innermostSink == nullptr || innermostSink->wants(beginning); }

void logLine(std::string_view text) { logPieces({&text, 1}); }

void logPieces(std::span<const std::string_view> pieces) {
    if (innermostSink == nullptr)
        writeToStandardError(pieces);
    else if (!pieces.empty() && innermostSink->wants(pieces.front()))
        innermostSink->receive(fmt::format("{}", fmt::join(pieces, "")));
}

void logFormatted(fmt::string_view text, fmt::format_args arguments) {
    if (!isLogRead({text.data(), text.size()}))
        return;
    fmt::memory_buffer message;
    fmt::vformat_to(fmt::appender(message), text, arguments);
    logLine(std::string_view(message.data(), message.size()));
}

void flushLog() { lineBuffer.flush(); }

LogSink::LogSink() : _outer(innermostSink) { innermostSink = this; }

LogSink::~LogSink() { innermostSink = _outer; }

void LogSink::passOn(std::string_view text) const {
    if (_outer != nullptr)
        _outer->receive(text);
    else
        writeToStandardError({&text, 1});
}

} // namespace brackwater
