#pragma once

#include "GanttOptions.h"
#include "TextReport.h"

#include <optional>
#include <string>
#include <vector>

namespace brackwater::inspect {

inline constexpr int kDone = 0, kFailed = 1, kWrongArguments = 2;

enum class Form { Text, Csv, Json };

/// What the user asks for.
struct Arguments {
    std::string path;              ///< of the project file
    std::vector<Section> sections; ///< in the order of the options
    Form form = Form::Text;
    bool check = false;
    std::optional<std::string> page; ///< of --gantt; "-" for standard output
    bool force = false;
    GanttOptions gantt;
    std::optional<std::size_t> width; ///< of tables in characters, 0 for no bound; none: the terminal's
};

/// Either arguments to run with, or a text for the user and the status to end with.
struct CommandLine {
    std::optional<Arguments> arguments;
    std::string text;
    int status = kDone;
};

[[nodiscard]] CommandLine parseCommandLine(int argc, const char* const* argv);

} // namespace brackwater::inspect
