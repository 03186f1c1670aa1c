#include "TWMSPFilterRunners/Command/Worker.h"

#include "MPPXMLDOMFilter/Container/CompoundFileLibrary.h"
#include "MPPXMLDOMFilter/Export/MSPEMPPExporter.h"
#include "Platform/Files/PathText.h"
#include "Platform/Time/TimeZone.h"
#include "Platform/Values/ProcessState.h"
#include "TWMSPFilterRunners/Brackwater/BrackwaterRunner.h"
#include "TWMSPFilterRunners/Command/ExportLog.h"
#include "TWMSPFilterRunners/Command/OutputFile.h"
#include "TWMSPFilterRunners/Command/UnreadLog.h"

#include <exception>
#include <vector>

namespace brackwater {

namespace {

/// Finds the losses of the finished file. Reads both files again without logging.
void compare(const std::string& bundlePath, const std::string& mppPath, ExportResult& result) {
    const UnreadLog log;
    try {
        result.losses = lossreport::findLosses(bundlePath, mppPath);
    } catch (const std::exception& failure) {
        result.comparisonFault = failure.what();
    }
}

/// The runner of the fixed command line, so that the log is the same. It exports to the work folder; then the finished
/// file is moved to its destination.
class WorkerRunner : public BrackwaterRunner {
public:
    WorkerRunner(const ExportJob& job, const WorkerSettings& settings, ProgressTeller& progress,
                 const std::function<void()>& isComputed)
        : _job(job), _settings(settings), _progress(progress), _isComputed(isComputed) {}

    [[nodiscard]] ExportResult takeResult() noexcept { return std::move(_result); }

protected:
    bool exportBundle(const FileURL& bundleUrl, const FileURL& mppUrl, const FileURL& templateUrl,
                      const MSPEExportInfo& info) override {
        MSPEMPPExporter exporter(info, _settings.mode);
        exporter.setThreads(_settings.threads);
        exporter.setProgress(&_progress);
        if (!exporter.exportZelbBundle(bundleUrl, mppUrl, templateUrl)) {
            _result.fault = exporter.failureText();
            return false;
        }
        _result.tasks = exporter.numberOfTasks();
        if (_settings.comparesOutputs) {
            _progress.advance(ExportPhase::Comparing, 0, 0);
            compare(_job.bundlePath, mppUrl.path(), _result);
        }
        _isComputed();
        try {
            const std::string output =
                stringByAppendingPathComponent(_job.outputFolder, lastPathComponent(_job.output));
            _result.outputName = lastPathComponent(moveIntoPlace(mppUrl.path(), output, _settings.replacesOutputs));
        } catch (const std::exception& failure) {
            _result.fault = failure.what();
            logLine("WARNING: {}", _result.fault);
            return false;
        }
        _result.exported = true;
        return true;
    }

private:
    const ExportJob& _job;
    const WorkerSettings& _settings;
    ProgressTeller& _progress;
    const std::function<void()>& _isComputed;
    ExportResult _result;
};

} // namespace

void prepareForWorkers() { static_cast<void>(TimeZone::system()); }

ExportResult runWorker(const ExportJob& job, const WorkerSettings& settings, const std::string& workFolder,
                       ProgressSlot& progress, const std::function<void()>& isComputed) {
    processState() = ProcessState();
    ExportLog log(settings.isLogRead, lastPathComponent(workFolder));
    ProgressTeller teller(progress);
    WorkerRunner runner(job, settings, teller, isComputed);
    const std::string name = stringByDeletingPathExtension(lastPathComponent(job.output));
    const std::vector<std::string> arguments = {
        "Brackwater", "--template-path", settings.templatePath, job.bundlePath,
        stringByAppendingPathComponent(workFolder, stringByAppendingPathExtension(name, "mpp"))};
    runner.run(arguments);
    ExportResult result = runner.takeResult();
    if (!result.exported)
        result.fault = log.withoutWorkFolder(result.fault.empty() ? log.fault() : result.fault);
    result.warnings = log.warnings();
    // If the reason of a failure was also logged as a warning, it is reported only once.
    std::erase_if(result.warnings, [&](const WarningCount& warning) { return warning.text == result.fault; });
    return result;
}

} // namespace brackwater
