#include "TWMSPFilterRunners/Command/BundleExports.h"

#include "MPPXMLDOMFilter/Container/CompoundFileLibrary.h"
#include "Platform/Log.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <system_error>
#include <unistd.h>

namespace brackwater {

namespace {

constexpr auto kTimeToEnd = std::chrono::seconds(1);
constexpr int kProgressPause = 100; // milliseconds
constexpr int kSignalStatus = 128;

/// Where an output is made: a folder beside its place, so that whatever a worker leaves there is removed with it.
std::string makeWorkFolder(const std::string& outputFolder) {
    std::string path = outputFolder + "/.brackwater-XXXXXX";
    if (mkdtemp(path.data()) == nullptr)
        throw std::system_error(errno, std::generic_category(),
                                fmt::format("nothing can be made in '{}'", outputFolder));
    return path;
}

void removeWorkFolder(const std::string& path) {
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
}

/// In a worker: what is written to standard error goes to the log, and nothing to standard output.
void redirectOutputs(int log) {
    const FileDescriptor nowhere(open("/dev/null", O_RDWR | O_CLOEXEC));
    dup2(nowhere.get(), STDIN_FILENO);
    dup2(nowhere.get(), STDOUT_FILENO);
    dup2(log >= 0 ? log : nowhere.get(), STDERR_FILENO);
}

} // namespace

BundleExports::BundleExports(const CommandOptions& options)
    : _options(options),
      _plan(planExports(options)), _settings{_plan.templatePath,
                                             options.exact ? ExportMode::Exact : ExportMode::Corrected,
                                             options.replacesOutputs, options.log.has_value()},
      _board(std::min<std::size_t>(options.jobs, std::max<std::size_t>(_plan.jobs.size(), 1))),
      _pool(std::min<std::size_t>(options.jobs, std::max<std::size_t>(_plan.jobs.size(), 1))),
      _progress(!options.quiet), _begun(_pool.size()) {
    if (options.log)
        _log.emplace(*options.log);
    if (options.report)
        _report.emplace(*options.report, _plan.templatePath);
}

int BundleExports::run() {
    // What it sets up is there in the workers then.
    const CompoundFileLibrary library;
    prepareForWorkers(_settings);
    while (_stopSignal == 0) {
        beginJobs();
        tellInOrder();
        if (_pool.isIdle())
            break;
        showProgress();
        for (const EndedWorker& worker :
             _pool.wait(_stopRequests.descriptor(), _progress.isShown() ? kProgressPause : -1))
            endJob(worker);
        if (const int request = _stopRequests.next(); request != 0)
            stop(request);
    }
    return finish();
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

/// False where it has to wait for the end of another.
bool BundleExports::beginJob(std::size_t number) {
    const ExportJob& job = _plan.jobs[number];
    const std::size_t slot = _pool.idleSlot();
    try {
        tellInOrder(); // so that its log is written to the file at once where all before it are done
        Begun begun{number, makeWorkFolder(job.outputFolder)};
        const int log = _log ? _log->beginJob(number) : -1;
        _board.slot(slot).phase = 0;
        _board.slot(slot).percent = 0;
        if (_pool.start(slot, number, [&] { return workInProcess(job, begun.workFolder, log, slot); })) {
            _begun[slot] = std::move(begun);
            return true;
        }
        const int fault = errno;
        removeWorkFolder(begun.workFolder);
        if (!_pool.isIdle())
            return false;
        throw std::system_error(fault, std::generic_category(), "no process can be started");
    } catch (const std::system_error& failure) {
        setFailure(number, failure.what());
        return true;
    }
}

std::string BundleExports::workInProcess(const ExportJob& job, const std::string& workFolder, int log,
                                         std::size_t slot) const {
    redirectOutputs(log);
    _stopRequests.releaseInWorker();
    const ExportResult result = runWorker(job, _settings, workFolder, _board.slot(slot));
    flushLog();
    return packedResult(result);
}

void BundleExports::endJob(const EndedWorker& worker) {
    removeWorkFolder(_begun[worker.slot].workFolder);
    _begun[worker.slot] = {};
    if (auto result = unpackedResult(worker.answer); result && worker.death.empty())
        _results.emplace(worker.job, std::move(*result));
    else if (_stopSignal == 0)
        setFailure(worker.job, worker.death.empty() ? "its process gave no answer" : worker.death);
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
            _log->endJob(_told);
        if (_report)
            _report->add(job, result);
        _summary.add(job, result);
        if (!result.exported || !_options.quiet) {
            _progress.clear();
            fmt::print(result.exported ? stdout : stderr, "{}{}\n",
                       result.exported ? "" : "brackwater: ", lineOfResult(job, result));
        }
        _results.erase(next);
        ++_told;
    }
}

void BundleExports::showProgress() {
    std::size_t slot = _begun.size();
    for (std::size_t i = 0; i < _begun.size(); ++i)
        if (!_begun[i].workFolder.empty() && (slot == _begun.size() || _begun[i].job < _begun[slot].job))
            slot = i;
    if (slot < _begun.size())
        _progress.show(_told + _results.size(), _plan.jobs.size(), _plan.jobs[_begun[slot].job].bundle,
                       _board.slot(slot));
}

/// Ends the workers: in order, so that they clean up, but a second request or a second's time ends them at once.
void BundleExports::stop(int signalNumber) {
    _stopSignal = signalNumber;
    _pool.sendToAll(SIGTERM);
    const auto end = std::chrono::steady_clock::now() + kTimeToEnd;
    while (!_pool.isIdle()) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
        for (const EndedWorker& worker :
             _pool.wait(_stopRequests.descriptor(), std::max(static_cast<int>(left.count()), 1)))
            endJob(worker);
        if (left.count() <= 0 || _stopRequests.next() != 0)
            _pool.sendToAll(SIGKILL);
    }
}

/// After a stop: what came to its end all the same, and what did not.
void BundleExports::tellRest() {
    std::size_t interrupted = 0;
    for (; _told < _plan.jobs.size(); ++_told) {
        tellInOrder();
        if (_told == _plan.jobs.size())
            break;
        ++interrupted;
        if (_log)
            _log->endJob(_told);
        if (_report)
            _report->addInterrupted(_plan.jobs[_told]);
    }
    if (interrupted > 0)
        fmt::print(stderr, "brackwater: interrupted; bundles that were not exported: {}\n", interrupted);
}

int BundleExports::status() const {
    if (_stopSignal != 0)
        return kSignalStatus + _stopSignal;
    if (_summary.failed() > 0)
        return static_cast<int>(CommandStatus::SomeFailed);
    const bool isLossAFailure = _options.failsOnLoss && _summary.isAnythingLost();
    return static_cast<int>(isLossAFailure ? CommandStatus::Losses : CommandStatus::Exported);
}

int BundleExports::finish() {
    _progress.clear();
    tellRest();
    if (!_options.quiet)
        fmt::print("{}", _summary.text());
    int status = this->status();
    const auto checkWritten = [&status](bool isWritten, std::string_view what) {
        if (isWritten)
            return;
        fmt::print(stderr, "brackwater: the {} could not be written\n", what);
        if (status == static_cast<int>(CommandStatus::Exported) || status == static_cast<int>(CommandStatus::Losses))
            status = static_cast<int>(CommandStatus::SomeFailed);
    };
    checkWritten(!_log || _log->close(), "log");
    checkWritten(!_report || _report->finish(status), "report");
    return status;
}

} // namespace brackwater
