#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <pthread.h>
#include <span>
#include <string_view>

namespace brackwater {

/// A thread that writes log lines to standard error, in their order, while whoever logs goes on. Lines reach it through
/// a ring of bytes; whoever logs waits for it only where the ring is full. One thread appends. No memory is asked for.
class LogThread {
public:
    /// False where this process may use one processor only, or no thread can be had.
    [[nodiscard]] bool start() noexcept;
    [[nodiscard]] bool isRunning() const noexcept { return _isRunning; }

    /// One line of all these texts.
    void append(std::string_view prefix, std::span<const std::string_view> pieces) noexcept;
    /// Room for a line's message of this size, which counts only once `finish` is called. Null where the ring has no
    /// such room in one piece.
    [[nodiscard]] char* begin(std::string_view prefix, std::size_t size) noexcept;
    void finish() noexcept;
    /// Returns when all lines are written. May be called from a signal handler.
    void flush() noexcept;
    /// Writes all lines and ends.
    void end() noexcept;
    /// For the child of a fork, in which the thread does not exist. The lines are the parent's.
    void forget() noexcept;

private:
    static constexpr std::size_t kCapacity = std::size_t{1} << 19;
    /// Large enough that the system's share of a write, and of waking the thread, is small.
    static constexpr std::size_t kCalledAfter = std::size_t{1} << 17;
    static constexpr std::size_t kLargestPart = std::size_t{1} << 14;

    void putInParts(std::string_view bytes) noexcept;
    void put(std::string_view bytes) noexcept;
    void publish() noexcept;
    void publishLine() noexcept;
    void waitForRoom(std::size_t size) noexcept;
    void call() noexcept;

    void run() noexcept;
    void writeUntil(std::uint64_t end) noexcept;

    // Places count all bytes that ever went into the ring, which has each at the remainder by its capacity.

    // Of whoever logs.
    std::uint64_t _putEnd = 0;
    std::uint64_t _roomEnd = kCapacity; ///< as far as known: there may be more room by now
    std::uint64_t _calledAt = 0;
    std::size_t _begun = 0; ///< size of the line that is being filled

    // Of both.
    std::atomic<std::uint64_t> _filled = 0;  ///< end of the lines that stand in the ring
    std::atomic<std::uint64_t> _written = 0; ///< end of those that are written
    std::atomic<std::uint32_t> _calls = 0;   ///< each wakes the thread
    std::atomic<bool> _isRunning = false;
    std::atomic<bool> _isEnding = false;
    std::array<char, kCapacity> _ring{};

    pthread_t _thread{};
};

} // namespace brackwater
