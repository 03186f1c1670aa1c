#pragma once

#include "Platform/Log.h"

#include <fmt/compile.h>
#include <fmt/format.h>

#include <iterator>
#include <string_view>

namespace brackwater {

/// Logs a line whose format the compiler has taken apart: `logElement(FMT_COMPILE("..."), ...)`. Tens of lines are
/// logged for each task, so a line is put together on the stack.
template <typename CompiledFormat, typename... Args>
void logElement(const CompiledFormat& format, const Args&... args) {
    fmt::memory_buffer line;
    fmt::format_to(std::back_inserter(line), format, args...);
    logLine(std::string_view(line.data(), line.size()));
}

/// What stands in front of an element's log line: the first element of a record opens its block.
[[nodiscard]] inline std::string_view logMark(std::string_view name) noexcept {
    return name == "UID" ? std::string_view("Mapping") : std::string_view("       ");
}

} // namespace brackwater
