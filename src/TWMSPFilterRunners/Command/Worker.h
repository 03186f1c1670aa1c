#pragma once

#include "MPPXMLDOMFilter/Export/ExportMode.h"
#include "TWMSPFilterRunners/Command/ExportPlan.h"
#include "TWMSPFilterRunners/Command/ExportResult.h"
#include "TWMSPFilterRunners/Command/ProgressBoard.h"

#include <functional>
#include <string>

namespace brackwater {

/// Settings shared by all exports of a run.
struct WorkerSettings {
    std::string templatePath; ///< absolute
    ExportMode mode = ExportMode::Corrected;
    bool replacesOutputs = false;
    int threads = 1;             ///< of each export
    bool isLogRead = false;      ///< the log goes to standard error; otherwise no line is formatted
    bool comparesOutputs = true; ///< otherwise the losses are unknown
};

/// Initializes what every export needs, so that the workers inherit it.
void prepareForWorkers();

/// Exports one bundle, in a process that has its own counters, log and memory; the counters start anew, so that the
/// bundles before make no difference. `workFolder` is an empty folder beside the output, in which the file is created;
/// `isComputed` is called when only disk writes remain, and holds requests to end back from then on. Catches all
/// failures.
[[nodiscard]] ExportResult runWorker(const ExportJob& job, const WorkerSettings& settings,
                                     const std::string& workFolder, ProgressSlot& progress,
                                     const std::function<void()>& isComputed);

} // namespace brackwater
