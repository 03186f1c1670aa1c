#pragma once

#include "TWMSPFilterRunners/Command/WorkerChannel.h"

#include <functional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace brackwater {

/// A job whose worker has answered or ended.
struct EndedJob {
    std::size_t job = 0;
    std::size_t slot = 0;
    std::string answer; ///< the result of the work
    std::string death;  ///< how the process ended instead of answering; empty if it answered
};

/// Processes that do one job at a time each, in parallel. They are forked without exec and inherit the memory of this
/// process, which must be single-threaded. A worker does many jobs, since a process costs more than a small export. One
/// that dies fails its present job only; the next job gets another. When a worker only waits for the disk, it says so,
/// and another one starts.
class WorkerPool {
public:
    /// Reports that the work no longer needs the processor. From then on requests to end the process wait until the
    /// answer is sent.
    using IsComputed = std::function<void()>;
    /// Called in the worker.
    using Work = std::function<std::string(std::size_t slot, const WorkRequest&, const IsComputed&)>;

    /// At most `most` workers compute at a time.
    WorkerPool(std::size_t most, Work work) : _most(most), _work(std::move(work)), _workers(sizeFor(most)) {}
    /// Ends the workers, by force those that do a job.
    ~WorkerPool();
    WorkerPool(const WorkerPool&) = delete;
    WorkerPool& operator=(const WorkerPool&) = delete;

    /// True if no job is being done.
    [[nodiscard]] bool isIdle() const;
    /// The index of an idle worker; size() if there is none.
    [[nodiscard]] std::size_t idleSlot() const;
    [[nodiscard]] static constexpr std::size_t sizeFor(std::size_t most) noexcept { return most + kMostWaiting; }
    [[nodiscard]] std::size_t size() const noexcept { return _workers.size(); }
    [[nodiscard]] bool isComputing(std::size_t slot) const;

    /// Has the job done in an idle slot; `wait` returns its answer. False, with errno set, if the system cannot create
    /// a process.
    [[nodiscard]] bool start(std::size_t slot, std::size_t job, const std::string& folder, int log);
    /// Waits for a job to end, for a byte at `otherDescriptor`, or for the timeout.
    [[nodiscard]] std::vector<EndedJob> wait(int otherDescriptor, int milliseconds);
    /// Ends the idle worker of the slot, if there is one: the next job gets a new process.
    void dismiss(std::size_t slot);
    /// Sends the signal to all workers.
    void sendToAll(int signalNumber) const;

private:
    static constexpr std::size_t kMostWaiting = 8;
    static constexpr std::size_t kMostJobsOfAWorker = 100;

    struct Worker {
        pid_t process = -1;
        WorkerChannel channel;
        std::size_t jobs = 0; ///< that it has begun
        bool isBusy = false;
        std::size_t job = 0; ///< while it is busy
        WorkAnswer answer;
    };

    [[nodiscard]] bool hire(std::size_t slot);
    void readAnswer(std::size_t slot, std::vector<EndedJob>& ended);
    [[nodiscard]] static std::string collect(Worker& worker);

    std::size_t _most;
    Work _work;
    std::vector<Worker> _workers;
};

} // namespace brackwater
