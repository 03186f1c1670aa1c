#pragma once

#include "MPPXMLDOMFilter/Export/ExportMode.h"
#include "TWMSPFilterRunners/Command/ExportPlan.h"
#include "TWMSPFilterRunners/Command/ExportResult.h"
#include "TWMSPFilterRunners/Command/ProgressBoard.h"

#include <functional>
#include <string>

namespace brackwater {

/// What the exports of a run have in common.
struct WorkerSettings {
    std::string templatePath; ///< absolute
    ExportMode mode = ExportMode::Corrected;
    bool replacesOutputs = false;
    int threads = 1;             ///< of each export
    bool isLogRead = false;      ///< the log goes to standard error; otherwise no line of it is made
    bool comparesOutputs = true; ///< else the losses of the exports are unknown
};

/// Looks up what every export needs, so that the workers begin with it.
void prepareForWorkers();

/// Exports one bundle, in a process of its own: counters, log and memory are the process's. `workFolder` is an empty
/// folder beside the output, in which the file is made; `isComputed` is called once only the disk has to be waited for.
/// Lets no failure escape.
[[nodiscard]] ExportResult runWorker(const ExportJob& job, const WorkerSettings& settings,
                                     const std::string& workFolder, ProgressSlot& progress,
                                     const std::function<void()>& isComputed);

} // namespace brackwater
