#pragma once

#include <span>
#include <string>

namespace brackwater {

/// One run of the command; `arguments` begin with the program's name. Returns the exit status and catches all failures.
[[nodiscard]] int runCommand(std::span<const std::string> arguments);

} // namespace brackwater
