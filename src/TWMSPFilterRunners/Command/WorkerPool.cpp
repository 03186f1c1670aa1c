#include "TWMSPFilterRunners/Command/WorkerPool.h"

#include "Platform/Log/FatalSignals.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <optional>
#include <poll.h>
#include <string_view>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace brackwater {

namespace {

constexpr int kDoneInOrder = 0;

void answer(const WorkerPool::Work& work, std::size_t slot, const WorkRequest& request, const WorkerChannel& channel) {
    // Once the output is in its place the command must learn of it: a request to end comes too late then.
    std::optional<SignalsHeldBack> untilAnswered;
    const auto tellComputed = [&] {
        if (untilAnswered)
            return;
        untilAnswered.emplace();
        channel.tellComputed();
    };
    const std::string result = work(slot, request, tellComputed);
    tellComputed();
    channel.sendAnswer(result);
}

/// In the new process. It must not run the command's own code: no destructors, no buffers flushed twice.
[[noreturn]] void serve(const WorkerPool::Work& work, std::size_t slot, const WorkerChannel& channel, pid_t command) {
    // A worker does not outlive the command.
    if (prctl(PR_SET_PDEATHSIG, SIGTERM) != 0 || getppid() != command)
        _exit(1);
    while (const std::optional<WorkRequest> request = channel.receive())
        answer(work, slot, *request, channel);
    _exit(kDoneInOrder);
}

std::string descriptionOfDeath(int status) {
    return WIFSIGNALED(status)
               ? fmt::format("its process was ended by signal {} ({})", WTERMSIG(status), strsignal(WTERMSIG(status)))
               : fmt::format("its process ended with status {}", WEXITSTATUS(status));
}

} // namespace

WorkerPool::~WorkerPool() {
    for (std::size_t slot = 0; slot < _workers.size(); ++slot) {
        if (_workers[slot].isBusy)
            kill(_workers[slot].process, SIGKILL);
        dismiss(slot);
    }
}

bool WorkerPool::isIdle() const { return std::ranges::none_of(_workers, &Worker::isBusy); }

bool WorkerPool::isComputing(std::size_t slot) const {
    return _workers[slot].isBusy && !_workers[slot].answer.isComputed();
}

std::size_t WorkerPool::idleSlot() const {
    std::size_t computing = 0;
    for (std::size_t slot = 0; slot < _workers.size(); ++slot)
        if (isComputing(slot))
            ++computing;
    if (computing >= _most)
        return _workers.size();
    return static_cast<std::size_t>(std::ranges::find(_workers, false, &Worker::isBusy) - _workers.begin());
}

bool WorkerPool::start(std::size_t slot, std::size_t job, const std::string& folder, int log) {
    Worker& worker = _workers[slot];
    if (worker.jobs == kMostJobsOfAWorker)
        dismiss(slot);
    // One that was ended from outside since its last job does not count.
    if (worker.process > 0 && !worker.channel.send(job, folder, log))
        dismiss(slot);
    if (worker.process < 0 && (!hire(slot) || !worker.channel.send(job, folder, log)))
        return false;
    ++worker.jobs;
    worker.isBusy = true;
    worker.job = job;
    worker.answer = WorkAnswer();
    return true;
}

bool WorkerPool::hire(std::size_t slot) {
    WorkerChannelEnds ends = makeWorkerChannel();
    if (!ends.ofCommand)
        return false;
    const pid_t command = getpid();
    const pid_t process = fork();
    if (process < 0)
        return false;
    if (process == 0)
        serve(_work, slot, ends.ofWorker, command);
    _workers[slot].process = process;
    _workers[slot].channel = std::move(ends.ofCommand);
    return true;
}

void WorkerPool::dismiss(std::size_t slot) {
    if (_workers[slot].process < 0)
        return;
    _workers[slot].channel.endRequests();
    static_cast<void>(collect(_workers[slot]));
}

std::vector<EndedJob> WorkerPool::wait(int otherDescriptor, int milliseconds) {
    std::vector<pollfd> waiting{{otherDescriptor, POLLIN, 0}};
    std::vector<std::size_t> slots;
    for (std::size_t slot = 0; slot < _workers.size(); ++slot) {
        if (_workers[slot].isBusy) {
            waiting.push_back({_workers[slot].channel.descriptor(), POLLIN, 0});
            slots.push_back(slot);
        }
    }
    std::vector<EndedJob> ended;
    if (poll(waiting.data(), waiting.size(), milliseconds) <= 0)
        return ended;
    for (std::size_t i = 0; i < slots.size(); ++i)
        if (waiting[i + 1].revents != 0)
            readAnswer(slots[i], ended);
    return ended;
}

void WorkerPool::readAnswer(std::size_t slot, std::vector<EndedJob>& ended) {
    Worker& worker = _workers[slot];
    std::array<char, 65536> piece;
    const ssize_t got = read(worker.channel.descriptor(), piece.data(), piece.size());
    if (got > 0) {
        worker.answer.append({piece.data(), static_cast<std::size_t>(got)});
        if (std::optional<std::string> answer = worker.answer.whole()) {
            worker.isBusy = false;
            ended.push_back({worker.job, slot, std::move(*answer), {}});
        }
    } else if (got == 0 || errno != EINTR) {
        const std::size_t job = worker.job;
        ended.push_back({job, slot, {}, collect(worker)});
    }
}

/// Waits for the process, which is ending, to end, and tells how it did.
std::string WorkerPool::collect(Worker& worker) {
    const Worker last = std::exchange(worker, Worker{});
    int status = 0;
    while (waitpid(last.process, &status, 0) < 0 && errno == EINTR)
        continue;
    return descriptionOfDeath(status);
}

void WorkerPool::sendToAll(int signalNumber) const {
    for (const Worker& worker : _workers)
        if (worker.process > 0)
            kill(worker.process, signalNumber);
}

} // namespace brackwater
