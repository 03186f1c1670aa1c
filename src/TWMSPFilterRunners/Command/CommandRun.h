#pragma once

#include <span>
#include <string>

namespace brackwater {

/// One run of the command; `arguments` begin with the program's name. Gives the exit status, and lets no failure
/// escape.
[[nodiscard]] int runCommand(std::span<const std::string> arguments);

} // namespace brackwater
