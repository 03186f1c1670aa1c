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
    std::string output;       ///< as the user would name it; where it is free until the export is done
    std::string fault;        ///< why the export is not even begun; empty when it is
};

/// What a run does, worked out and checked before the first export begins.
struct ExportPlan {
    std::string templatePath;
    std::vector<ExportJob> jobs;
};

/// Raises UsageError where the template, the output or the log is none: then no bundle could be exported. A bundle that
/// is none gets its fault instead. Makes the output folder where only that is missing, and changes nothing else.
[[nodiscard]] ExportPlan planExports(const CommandOptions& options);

} // namespace brackwater
