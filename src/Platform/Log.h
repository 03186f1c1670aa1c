#pragma once

#include <fmt/core.h>

#include <string_view>

namespace brackwater {

/// The log facility. One message becomes one line on standard error, `YYYY-MM-DD HH:MM:SS.mmm Brackwater[pid] text`
/// with the local wall clock; line ends inside a message stay as they are. Output is buffered, and nothing logged is
/// lost when the process ends or dies by an uncaught exception.
void logLine(std::string_view text);

/// Formats and logs one message.
template <typename... Args>
requires(sizeof...(Args) > 0) void logLine(fmt::format_string<Args...> text, Args&&... args) {
    logLine(std::string_view(fmt::format(text, std::forward<Args>(args)...)));
}

/// Writes out what is buffered.
void flushLog();

/// Where log lines go while the object lives instead of standard error: each message, without time stamp and process,
/// for tests. Objects nest; the innermost receives.
class LogSink {
public:
    LogSink();
    virtual ~LogSink();
    LogSink(const LogSink&) = delete;
    LogSink& operator=(const LogSink&) = delete;

    virtual void receive(std::string_view text) = 0;

private:
    LogSink* _outer;
};

} // namespace brackwater
