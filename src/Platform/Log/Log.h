#pragma once

#include <fmt/core.h>

#include <cstddef>
#include <span>
#include <string_view>

namespace brackwater {

/// The log facility. One message becomes one line on standard error, `YYYY-MM-DD HH:MM:SS.mmm Brackwater[pid] text`
/// with the local wall clock; line ends inside a message stay as they are. Output is buffered, unless standard error is
/// a terminal, and nothing logged is lost when the process ends, dies by an uncaught exception or by a signal. Only one
/// thread of a process may log to standard error; any other has a LogSink of its own.
void logLine(std::string_view text);

/// Logs one message that stands in pieces, without putting them together first.
void logPieces(std::span<const std::string_view> pieces);

/// Logs messages of these sizes, which stand one behind the other in a text, with one time stamp.
void logLines(std::string_view text, std::span<const std::size_t> sizes);

/// Room for a message of this size in the buffer that it goes to, which the caller fills and ends before it logs
/// anything else. Null where there is no such room at hand: logPieces always works.
[[nodiscard]] char* beginLogLine(std::size_t size);
void endLogLine() noexcept;

/// Formats and logs one message, whatever its arguments' number and kinds.
void logFormatted(fmt::string_view text, fmt::format_args arguments);

/// Formats and logs one message.
template <typename... Args>
requires(sizeof...(Args) > 0) void logLine(fmt::format_string<Args...> text, Args&&... args) {
    logFormatted(text, fmt::make_format_args(args...));
}

/// Whether anybody reads a message that begins so. Asked before a message is made that costs much.
[[nodiscard]] bool isLogRead(std::string_view beginning);

/// Writes out what is buffered. May be called from a signal handler.
void flushLog();

/// Where log lines of its thread go while the object lives instead of standard error: each message, without time stamp
/// and process. Objects nest; the innermost receives.
class LogSink {
public:
    LogSink();
    virtual ~LogSink();
    LogSink(const LogSink&) = delete;
    LogSink& operator=(const LogSink&) = delete;

    /// Whether it takes a message that begins so (of a formatted one, its format is shown). One that it does not take
    /// is never put together.
    [[nodiscard]] virtual bool wants(std::string_view beginning) const {
        static_cast<void>(beginning);
        return true;
    }
    virtual void receive(std::string_view text) = 0;
    /// Room for a message of this size, which then counts as received. Null if it cannot be filled in place.
    [[nodiscard]] virtual char* begin(std::size_t size) {
        static_cast<void>(size);
        return nullptr;
    }

    /// Where log lines of the calling thread go; null for standard error.
    [[nodiscard]] static LogSink* innermost() noexcept;

protected:
    /// Hands a message on to where it would have gone without this object.
    void passOn(std::string_view text) const;

private:
    LogSink* _outer;
};

} // namespace brackwater
