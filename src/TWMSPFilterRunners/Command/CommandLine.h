#pragma once

#include "TWMSPFilterRunners/Command/CommandOptions.h"

#include <span>
#include <string>
#include <variant>

namespace brackwater {

/// The text of the help or the version, requested instead of an export.
struct CommandAnswer {
    std::string text;
};

/// Parses the command line; `arguments` begin with the program's name. Raises UsageError if it is wrong.
[[nodiscard]] std::variant<CommandOptions, CommandAnswer> parseCommandLine(std::span<const std::string> arguments);

} // namespace brackwater
