#pragma once

#include "TWMSPFilterRunners/Command/CommandOptions.h"

#include <string>
#include <vector>

namespace brackwater {

/// One bundle of a run.
struct ExportJob {
    std::string bundle;       ///< as the user named it
    std::string bundlePath;   ///< absolute
    std::string outputFolder; ///< absolute, without links
    std::string output;       ///< as the user would name it; its place if it is free when the export ends
    std::string fault;        ///< why the export cannot start; empty if it can
};

/// All work of a run, determined and checked before the first export begins.
struct ExportPlan {
    std::string templatePath;
    std::vector<ExportJob> jobs;
};

/// Raises UsageError if the template, the output or the log is unusable: then no bundle could be exported. An unusable
/// bundle gets its fault instead. Creates the output folder if its parent exists, and changes nothing else.
[[nodiscard]] ExportPlan planExports(const CommandOptions& options);

} // namespace brackwater
