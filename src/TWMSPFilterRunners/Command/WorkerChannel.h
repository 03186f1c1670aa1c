#pragma once

#include "TWMSPFilterRunners/Command/FileDescriptor.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace brackwater {

/// What a worker is asked to do.
struct WorkRequest {
    std::size_t job = 0;
    std::string folder; ///< for its unfinished files; at most a path of the system
    FileDescriptor log; ///< for its log; none if nobody reads it
};

/// What the command has received from a worker about its present request.
class WorkAnswer {
public:
    void append(std::string_view bytes) { _bytes += bytes; }

    /// Only disk writes remain.
    [[nodiscard]] bool isComputed() const noexcept { return !_bytes.empty(); }
    /// The result of the work, once all of it is here.
    [[nodiscard]] std::optional<std::string> whole() const;

private:
    std::string _bytes;
};

/// One end of the connection between the command and a worker.
class WorkerChannel {
public:
    WorkerChannel() = default;
    explicit WorkerChannel(FileDescriptor socket) noexcept : _socket(std::move(socket)) {}

    explicit operator bool() const noexcept { return static_cast<bool>(_socket); }
    [[nodiscard]] int descriptor() const noexcept { return _socket.get(); }

    /// `log`: -1 if nobody reads it. False, with errno set, if the worker has ended.
    [[nodiscard]] bool send(std::size_t job, const std::string& folder, int log) const;
    /// Waits for the next request; none when the command wants no more.
    [[nodiscard]] std::optional<WorkRequest> receive() const;
    /// Tells the worker that there are no more requests.
    void endRequests() const noexcept;

    void tellComputed() const;
    void sendAnswer(const std::string& answer) const;

private:
    FileDescriptor _socket;
};

/// Both ends of a connection.
struct WorkerChannelEnds {
    WorkerChannel ofCommand;
    WorkerChannel ofWorker;
};

/// Without sockets, with errno set, if the system has none.
[[nodiscard]] WorkerChannelEnds makeWorkerChannel();

} // namespace brackwater
