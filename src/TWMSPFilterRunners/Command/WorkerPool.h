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
    std::string answer; ///< what its work gave; not whole where the process died
    std::string death;  ///< how the process ended, where it did not end in order
};

/// Processes that do one job each, side by side. They are made by fork alone and go on with the memory of this process,
/// which must have one thread. A worker that only waits for the disk any more says so, and another begins beside it.
class WorkerPool {
public:
    /// Says that the work needs no processor any more.
    using IsComputed = std::function<void()>;
    using Work = std::function<std::string(const IsComputed&)>;

    /// At most so many that compute.
    explicit WorkerPool(std::size_t most) : _most(most), _workers(sizeFor(most)) {}
    /// Ends what still runs.
    ~WorkerPool();
    WorkerPool(const WorkerPool&) = delete;
    WorkerPool& operator=(const WorkerPool&) = delete;

    [[nodiscard]] bool isIdle() const;
    /// The number of a worker that may begin; size() without one.
    [[nodiscard]] std::size_t idleSlot() const;
    [[nodiscard]] static constexpr std::size_t sizeFor(std::size_t most) noexcept { return most + kMostWaiting; }
    [[nodiscard]] std::size_t size() const noexcept { return _workers.size(); }
    [[nodiscard]] bool isComputing(std::size_t slot) const { return _workers[slot].isComputing; }

    /// Has `work` done by an idle worker; its answer comes back from `wait`. False where the system has no process.
    [[nodiscard]] bool start(std::size_t slot, std::size_t job, const Work& work);
    /// Waits for workers that end, for a byte at `otherDescriptor`, or for the time to pass.
    [[nodiscard]] std::vector<EndedWorker> wait(int otherDescriptor, int milliseconds);
    /// Asks the workers to end.
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
