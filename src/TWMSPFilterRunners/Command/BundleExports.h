#pragma once

#include "TWMSPFilterRunners/Command/CommandOptions.h"
#include "TWMSPFilterRunners/Command/CommandOutput.h"
#include "TWMSPFilterRunners/Command/ExportPlan.h"
#include "TWMSPFilterRunners/Command/ExportResult.h"
#include "TWMSPFilterRunners/Command/LogFile.h"
#include "TWMSPFilterRunners/Command/ProgressBoard.h"
#include "TWMSPFilterRunners/Command/ProgressLine.h"
#include "TWMSPFilterRunners/Command/ReportFile.h"
#include "TWMSPFilterRunners/Command/StopRequests.h"
#include "TWMSPFilterRunners/Command/Summary.h"
#include "TWMSPFilterRunners/Command/WorkFolder.h"
#include "TWMSPFilterRunners/Command/Worker.h"
#include "TWMSPFilterRunners/Command/WorkerPool.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace brackwater {

/// All exports of one run: plans them, runs them in workers, and reports them in the order of the bundles.
class BundleExports {
public:
    /// Plans and checks. Raises UsageError.
    explicit BundleExports(const CommandOptions& options);

    /// The exit status: a CommandStatus, or 128 plus the number of the signal that ended the run.
    [[nodiscard]] int run();

private:
    /// Data of one worker.
    struct Slot {
        std::size_t job = 0;
        WorkFolder folder;
    };

    void waitForWorkers();
    void beginJobs();
    [[nodiscard]] bool beginJob(std::size_t job);
    [[nodiscard]] std::string workInProcess(std::size_t slot, const WorkRequest& request,
                                            const WorkerPool::IsComputed& isComputed) const;
    void endJob(const EndedJob& ended);
    void setFailure(std::size_t job, std::string fault);
    void tellInOrder();
    void showProgress();
    void stop(int signalNumber);
    void tellRest();
    [[nodiscard]] int finish();
    [[nodiscard]] int status() const;

    const CommandOptions& _options;
    ExportPlan _plan;
    WorkerSettings _settings;
    StopRequests _stopRequests;
    CommandOutput _output;
    std::optional<LogFile> _log;
    std::optional<ReportFile> _report;
    std::vector<Slot> _slots; ///< outlive the workers
    ProgressBoard _board;
    WorkerPool _pool;
    ProgressLine _progress;
    Summary _summary;
    std::size_t _nextJob = 0;                     ///< the next job to start
    std::map<std::size_t, ExportResult> _results; ///< waiting for earlier ones
    std::size_t _told = 0;
    int _stopSignal = 0;
};

} // namespace brackwater
