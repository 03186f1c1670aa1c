#include "TWMSPFilterRunners/Command/WorkerPool.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <string_view>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace brackwater {

namespace {

constexpr int kDoneInOrder = 0;
constexpr std::string_view kComputedMark = "."; // precedes the answer

void writeAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR)
            return;
        bytes.remove_prefix(written < 0 ? 0 : static_cast<std::size_t>(written));
    }
}

/// In the new process. It must not run the command's own code: no destructors, no buffers flushed twice.
[[noreturn]] void work(const WorkerPool::Work& work, int answers, pid_t command) {
    // A worker does not outlive the command.
    if (prctl(PR_SET_PDEATHSIG, SIGTERM) != 0 || getppid() != command)
        _exit(1);
    bool isMarked = false;
    const auto mark = [&] {
        if (!std::exchange(isMarked, true))
            writeAll(answers, kComputedMark);
    };
    const std::string answer = work(mark);
    mark();
    writeAll(answers, answer);
    _exit(kDoneInOrder);
}

std::string descriptionOfDeath(int status) {
    if (WIFSIGNALED(status))
        return fmt::format("its process was ended by signal {} ({})", WTERMSIG(status), strsignal(WTERMSIG(status)));
    return WIFEXITED(status) && WEXITSTATUS(status) == kDoneInOrder
               ? std::string()
               : fmt::format("its process ended with status {}", WEXITSTATUS(status));
}

} // namespace

WorkerPool::~WorkerPool() {
    sendToAll(SIGKILL);
    for (const Running& running : _workers)
        if (running.process > 0)
            waitpid(running.process, nullptr, 0);
}

bool WorkerPool::isIdle() const {
    return std::ranges::none_of(_workers, [](const Running& running) { return running.process > 0; });
}

std::size_t WorkerPool::idleSlot() const {
    if (static_cast<std::size_t>(std::ranges::count(_workers, true, &Running::isComputing)) >= _most)
        return _workers.size();
    std::size_t slot = 0;
    while (slot < _workers.size() && _workers[slot].process > 0)
        ++slot;
    return slot;
}

bool WorkerPool::start(std::size_t slot, std::size_t job, const Work& work_) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        return false;
    FileDescriptor answers(ends[0]);
    const FileDescriptor workersEnd(ends[1]);
    const pid_t command = getpid();
    const pid_t process = fork();
    if (process < 0)
        return false;
    if (process == 0)
        work(work_, workersEnd.get(), command);
    _workers[slot] = Running{process, job, std::move(answers), {}, true};
    return true;
}

std::vector<EndedWorker> WorkerPool::wait(int otherDescriptor, int milliseconds) {
    std::vector<pollfd> waiting{{otherDescriptor, POLLIN, 0}};
    std::vector<std::size_t> slots;
    for (std::size_t slot = 0; slot < _workers.size(); ++slot) {
        if (_workers[slot].process > 0) {
            waiting.push_back({_workers[slot].answers.get(), POLLIN, 0});
            slots.push_back(slot);
        }
    }
    std::vector<EndedWorker> ended;
    if (poll(waiting.data(), waiting.size(), milliseconds) <= 0)
        return ended;
    for (std::size_t i = 0; i < slots.size(); ++i)
        if (waiting[i + 1].revents != 0)
            readAnswer(slots[i], ended);
    return ended;
}

void WorkerPool::readAnswer(std::size_t slot, std::vector<EndedWorker>& ended) {
    std::array<char, 65536> piece;
    const ssize_t got = read(_workers[slot].answers.get(), piece.data(), piece.size());
    if (got > 0) {
        const std::string_view bytes(piece.data(), static_cast<std::size_t>(got));
        const bool isFirst = std::exchange(_workers[slot].isComputing, false);
        _workers[slot].answer.append(isFirst ? bytes.substr(kComputedMark.size()) : bytes);
    } else if (got == 0 || errno != EINTR) {
        ended.push_back(collect(slot));
    }
}

EndedWorker WorkerPool::collect(std::size_t slot) {
    Running running = std::exchange(_workers[slot], Running{});
    int status = 0;
    while (waitpid(running.process, &status, 0) < 0 && errno == EINTR)
        continue;
    return {running.job, slot, std::move(running.answer), descriptionOfDeath(status)};
}

void WorkerPool::sendToAll(int signalNumber) const {
    for (const Running& running : _workers)
        if (running.process > 0)
            kill(running.process, signalNumber);
}

} // namespace brackwater
