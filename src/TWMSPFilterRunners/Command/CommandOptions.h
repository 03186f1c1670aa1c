#pragma once

#include <optional>
#include <string>
#include <vector>

namespace brackwater {

/// Exit status of the command. If a signal ended it, 128 plus the signal's number: 130 after SIGINT.
enum class CommandStatus {
    Exported = 0,
    SomeFailed = 1, ///< at least one bundle, or an output of the command itself
    WrongUsage = 2, ///< nothing was started
    Losses = 3,     ///< all exported, but something was lost, with the option to fail then
};

/// The options of the command line.
struct CommandOptions {
    std::vector<std::string> bundles;
    std::optional<std::string> inputList; ///< a file or pipe with one bundle per line; "-" is standard input
    std::optional<std::string> output;    ///< a file for one bundle, or a folder
    std::optional<std::string> templatePath;
    std::optional<std::string> log;
    std::optional<std::string> report;
    std::vector<std::string> acceptedLosses; ///< kinds, as in the report
    unsigned jobs = 1;
    bool replacesOutputs = false;
    bool exact = false;
    bool failsOnLoss = false; ///< unless all losses are accepted
    bool quiet = false;
};

} // namespace brackwater
