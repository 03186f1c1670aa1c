#pragma once

#include <optional>
#include <string>
#include <vector>

namespace brackwater {

/// Exit status of the command. One that a signal ended has 128 and the signal's number: 130 after SIGINT.
enum class CommandStatus {
    Exported = 0,
    SomeFailed = 1, ///< one bundle or more, or an output of the command itself
    WrongUsage = 2, ///< nothing was begun
    Losses = 3,     ///< all exported, but asked to fail where something was lost
};

/// What the command line asks for.
struct CommandOptions {
    std::vector<std::string> bundles;
    std::optional<std::string> inputList; ///< a file or pipe with one bundle a line; "-" is standard input
    std::optional<std::string> output;    ///< a file for one bundle, or a folder
    std::optional<std::string> templatePath;
    std::optional<std::string> log;
    std::optional<std::string> report;
    unsigned jobs = 1;
    bool replacesOutputs = false;
    bool exact = false;
    bool failsOnLoss = false;
    bool quiet = false;
};

} // namespace brackwater
