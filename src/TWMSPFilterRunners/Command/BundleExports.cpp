#include "TWMSPFilterRunners/Command/BundleExports.h"

#include "MPPXMLDOMFilter/Container/CompoundFileLibrary.h"
#include "Platform/Log/Log.h"
#include "Platform/Log/LogLoss.h"
#include "Platform/Values/Processors.h"

#include <fmt/format.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>

namespace brackwater {

namespace {

constexpr auto kTimeToEnd = std::chrono::seconds(1);
constexpr int kProgressPause = 100; // milliseconds
constexpr int kSignalStatus = 128;
constexpr std::uint64_t kMostTasksOfAReusedWorker = 10'000;

/// In a worker: standard error goes to the log, standard output nowhere.
void redirectOutputs(int log) {
    const FileDescriptor nowhere(open("/dev/null", O_RDWR | O_CLOEXEC));
    dup2(nowhere.get(), STDIN_FILENO);
    dup2(nowhere.get(), STDOUT_FILENO);
    dup2(log >= 0 ? log : nowhere.get(), STDERR_FILENO);
}

std::size_t workersFor(const CommandOptions& options, const ExportPlan& plan) {
    return std::min<std::size_t>(options.jobs, std::max<std::size_t>(plan.jobs.size(), 1));
}

// Processors that no worker would use otherwise.
int threadsOfEach(std::size_t workers) { return std::max(1, usableProcessors() / static_cast<int>(workers)); }

} // namespace

BundleExports::BundleExports(const CommandOptions& options)
    : _options(options),
      _plan(planExports(options)), _settings{_plan.templatePath,
                                             options.exact ? ExportMode::Exact : ExportMode::Corrected,
                                             options.replacesOutputs,
                                             threadsOfEach(workersFor(options, _plan)),
                                             options.log.has_value(),
                                             !options.quiet || options.report || options.failsOnLoss},
      _output(&_stopRequests), _slots(WorkerPool::sizeFor(workersFor(options, _plan))), _board(_slots.size()),
      _pool(workersFor(options, _plan),
            [this](std::size_t slot, const WorkRequest& request, const WorkerPool::IsComputed& isComputed) {
                return workInProcess(slot, request, isComputed);
            }),
      _progress(!options.quiet), _summary(options.acceptedLosses) {
    if (options.log)
        _log.emplace(*options.log, _stopRequests);
    if (options.report)
        _report.emplace(*options.report, _plan.templatePath, _stopRequests);
}

int BundleExports::run() {
    // Initialized before the workers start, which inherit it.
    const CompoundFileLibrary library;
    prepareForWorkers();
    while (_stopSignal == 0) {
        beginJobs();
        tellInOrder();
        // One that ended the wait for a reader is still there, also when there is nothing more to do.
        if (const int request = _stopRequests.next(); request != 0)
            stop(request);
        else if (_pool.isIdle())
            break;
        else
            waitForWorkers();
    }
    return finish();
}

void BundleExports::waitForWorkers() {
    showProgress();
    for (const EndedJob& ended : _pool.wait(_stopRequests.descriptor(), _progress.isShown() ? kProgressPause : -1))
        endJob(ended);
}

void BundleExports::beginJobs() {
    while (_nextJob < _plan.jobs.size() && _pool.idleSlot() < _pool.size()) {
        if (const std::string& fault = _plan.jobs[_nextJob].fault; !fault.empty())
            setFailure(_nextJob, fault);
        else if (!beginJob(_nextJob))
            return;
        ++_nextJob;
    }
}

/// False if it has to wait for another job to end.
bool BundleExports::beginJob(std::size_t job) {
    const std::size_t slot = _pool.idleSlot();
    try {
        tellInOrder(); // so that the job logs directly to the file if all before it are done
        _slots[slot].job = job;
        _slots[slot].folder.makeIn(_plan.jobs[job].outputFolder);
        const int log = _log ? _log->beginJob(job) : -1;
        _board.slot(slot).phase = 0;
        _board.slot(slot).percent = ProgressSlot::kNotKnown;
        if (_pool.start(slot, job, _slots[slot].folder.path(), log))
            return true;
        const int fault = errno;
        if (!_pool.isIdle())
            return false;
        throw std::system_error(fault, std::generic_category(), "cannot start a process");
    } catch (const std::system_error& failure) {
        setFailure(job, failure.what());
        return true;
    }
}

std::string BundleExports::workInProcess(std::size_t slot, const WorkRequest& request,
                                         const WorkerPool::IsComputed& isComputed) const {
    redirectOutputs(request.log.get());
    _stopRequests.releaseInWorker();
    ExportResult result = runWorker(_plan.jobs[request.job], _settings, request.folder, _board.slot(slot), isComputed);
    flushLog();
    result.isLogWhole = isLogWhole();
    return packedResult(result);
}

void BundleExports::endJob(const EndedJob& ended) {
    auto result = ended.death.empty() ? unpackedResult(ended.answer) : std::nullopt;
    // Reuses only an empty folder for the next job, and a worker that has memory to spare and no fault behind it.
    if (!result || !result->exported)
        _slots[ended.slot].folder.remove();
    if (!result || !result->exported || !result->isLogWhole || result->tasks > kMostTasksOfAReusedWorker)
        _pool.dismiss(ended.slot);
    if (result)
        _results.emplace(ended.job, std::move(*result));
    else if (_stopSignal == 0)
        setFailure(ended.job, ended.death.empty() ? "its process sent no result" : ended.death);
}

void BundleExports::setFailure(std::size_t job, std::string fault) {
    ExportResult result;
    result.fault = std::move(fault);
    _results.emplace(job, std::move(result));
}

void BundleExports::tellInOrder() {
    for (auto next = _results.find(_told); next != _results.end(); next = _results.find(_told)) {
        const ExportJob& job = _plan.jobs[_told];
        const ExportResult& result = next->second;
        if (_log)
            _log->endJob(_told, result.isLogWhole);
        if (_report)
            _report->add(job, result);
        _summary.add(job, result);
        if (!result.exported || !_options.quiet) {
            _progress.clear();
            const std::string line = lineOfResult(job, result) + "\n";
            if (result.exported)
                _output.print(line);
            else
                _output.printError("brackwater: " + line);
        }
        _results.erase(next);
        ++_told;
    }
}

void BundleExports::showProgress() {
    if (!_progress.isShown())
        return;
    std::size_t first = _slots.size();
    for (std::size_t slot = 0; slot < _slots.size(); ++slot)
        if (_pool.isComputing(slot) && (first == _slots.size() || _slots[slot].job < _slots[first].job))
            first = slot;
    if (first < _slots.size())
        _progress.show(_told + _results.size(), _plan.jobs.size(), _plan.jobs[_slots[first].job].bundle,
                       _board.slot(first));
}

/// Asks the workers to clean up and end; a second request, or a second's time, kills them.
void BundleExports::stop(int signalNumber) {
    _stopSignal = signalNumber;
    _pool.sendToAll(SIGTERM);
    const auto end = std::chrono::steady_clock::now() + kTimeToEnd;
    while (!_pool.isIdle()) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
        for (const EndedJob& ended :
             _pool.wait(_stopRequests.descriptor(), std::max(static_cast<int>(left.count()), 1)))
            endJob(ended);
        if (left.count() <= 0 || _stopRequests.next() != 0)
            _pool.sendToAll(SIGKILL);
    }
}

/// After a stop: the bundles that finished anyway, and those that did not.
void BundleExports::tellRest() {
    std::size_t interrupted = 0;
    for (; _told < _plan.jobs.size(); ++_told) {
        tellInOrder();
        if (_told == _plan.jobs.size())
            break;
        ++interrupted;
        if (_log)
            _log->endJob(_told, true);
        if (_report)
            _report->addInterrupted(_plan.jobs[_told]);
    }
    if (interrupted > 0)
        _output.printError(fmt::format("brackwater: interrupted; bundles not exported: {}\n", interrupted));
}

int BundleExports::status() const {
    if (_stopSignal != 0)
        return kSignalStatus + _stopSignal;
    if (_summary.failed() > 0)
        return static_cast<int>(CommandStatus::SomeFailed);
    const bool isLossAFailure = _options.failsOnLoss && _summary.hasUnacceptedLoss();
    return static_cast<int>(isLossAFailure ? CommandStatus::Losses : CommandStatus::Exported);
}

int BundleExports::finish() {
    _progress.clear();
    tellRest();
    if (!_options.quiet)
        _output.print(_summary.text());
    int status = this->status();
    const auto checkWritten = [&](bool isWritten, std::string_view what) {
        if (isWritten)
            return;
        _output.printError(fmt::format("brackwater: {} cannot be written\n", what));
        if (status == static_cast<int>(CommandStatus::Exported) || status == static_cast<int>(CommandStatus::Losses))
            status = static_cast<int>(CommandStatus::SomeFailed);
    };
    checkWritten(_output.isWhole(), "standard output");
    checkWritten(!_log || _log->close(), "the log");
    checkWritten(!_report || _report->finish(status), "the report");
    return status;
}

} // namespace brackwater
