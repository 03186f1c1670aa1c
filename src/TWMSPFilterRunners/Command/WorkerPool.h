#pragma once

#include "TWMSPFilterRunners/Command/FileDescriptor.h"

#include <functional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace brackwater {

/// A worker that has ended.
struct EndedWorker {
    std::size_t job = 0;
    std::size_t slot = 0;
    std::string answer; ///< the result of its work; incomplete if the process crashed
    std::string death;  ///< how the process ended, if abnormally
};

/// Processes that do one job each, in parallel. They are forked without exec and inherit the memory of this process,
/// which must be single-threaded. When a worker only waits for the disk, it says so, and another one starts.
class WorkerPool {
public:
    /// Reports that the work no longer needs the processor.
    using IsComputed = std::function<void()>;
    using Work = std::function<std::string(const IsComputed&)>;

    /// At most `most` workers compute at a time.
    explicit WorkerPool(std::size_t most) : _most(most), _workers(sizeFor(most)) {}
    /// Kills running workers.
    ~WorkerPool();
    WorkerPool(const WorkerPool&) = delete;
    WorkerPool& operator=(const WorkerPool&) = delete;

    [[nodiscard]] bool isIdle() const;
    /// The index of an idle worker; size() if there is none.
    [[nodiscard]] std::size_t idleSlot() const;
    [[nodiscard]] static constexpr std::size_t sizeFor(std::size_t most) noexcept { return most + kMostWaiting; }
    [[nodiscard]] std::size_t size() const noexcept { return _workers.size(); }
    [[nodiscard]] bool isComputing(std::size_t slot) const { return _workers[slot].isComputing; }

    /// Runs `work` in an idle worker; `wait` returns its answer. False if the system cannot create a process.
    [[nodiscard]] bool start(std::size_t slot, std::size_t job, const Work& work);
    /// Waits for a worker to end, for a byte at `otherDescriptor`, or for the timeout.
    [[nodiscard]] std::vector<EndedWorker> wait(int otherDescriptor, int milliseconds);
    /// Sends the signal to all workers.
    void sendToAll(int signalNumber) const;

private:
    static constexpr std::size_t kMostWaiting = 4;

    struct Running {
        pid_t process = -1;
        std::size_t job = 0;
        FileDescriptor answers;
        std::string answer;
        bool isComputing = false;
    };

    void readAnswer(std::size_t slot, std::vector<EndedWorker>& ended);
    [[nodiscard]] EndedWorker collect(std::size_t slot);

    std::size_t _most;
    std::vector<Running> _workers;
};

} // namespace brackwater
