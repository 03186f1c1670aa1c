#pragma once

#include "TWMSPFilterRunners/Command/CommandOptions.h"

#include <span>
#include <string>
#include <variant>

namespace brackwater {

/// A text that the command line asked for instead of an export: the help or the version.
struct CommandAnswer {
    std::string text;
};

/// Takes the command line apart; `arguments` begin with the program's name. Raises UsageError for what it cannot take.
[[nodiscard]] std::variant<CommandOptions, CommandAnswer> parseCommandLine(std::span<const std::string> arguments);

} // namespace brackwater
