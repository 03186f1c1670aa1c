#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <pthread.h>
#include <span>
#include <string_view>

namespace brackwater {

/// A thread that puts log lines together and writes them to standard error, in their order, while whoever logs goes on.
/// Messages reach it through a ring of bytes; whoever logs waits for it only where the ring is full. One thread
/// appends. No memory is asked for.
class LogThread {
public:
    /// False where this process may use one processor only, or no thread can be had.
    [[nodiscard]] bool start() noexcept;
    [[nodiscard]] bool isRunning() const noexcept { return _isRunning; }

    /// What stands in front of each message from here on; at most 128 bytes.
    void setPrefix(std::string_view prefix) noexcept;
    /// One message of all these texts.
    void append(std::span<const std::string_view> pieces) noexcept;
    /// Returns when all messages are written. May be called from a signal handler.
    void flush() noexcept;
    /// Writes all messages and ends.
    void end() noexcept;
    /// For the child of a fork, in which the thread does not exist. The messages are the parent's.
    void forget() noexcept { _isRunning = false; }

private:
    /// What the ring holds: a word of size and kind, and the bytes.
    enum class Kind : std::uint32_t { Prefix, Part, LastPart };

    static constexpr std::size_t kCapacity = std::size_t{1} << 18;
    static constexpr std::size_t kCalledAfter = std::size_t{1} << 15;
    static constexpr std::size_t kLargestPart = std::size_t{1} << 14;

    void putMessage(std::span<const std::string_view> pieces, std::size_t size) noexcept;
    void putLargePiece(std::string_view piece) noexcept;
    void putHead(Kind kind, std::size_t size) noexcept;
    void put(std::string_view bytes) noexcept;
    void publish() noexcept;
    void waitForRoom(std::size_t size) noexcept;
    void call() noexcept;

    void run() noexcept;
    void writeUntil(std::uint64_t end) noexcept;
    void takeRecord() noexcept;
    char* take(char* to, std::size_t size) noexcept;

    // Places count all bytes that ever went into the ring, which has each at the remainder by its capacity.

    // Of whoever logs.
    std::uint64_t _putEnd = 0;
    std::uint64_t _roomEnd = kCapacity; ///< as far as known: there may be more room by now
    std::uint64_t _calledAt = 0;

    // Of both.
    std::atomic<std::uint64_t> _filled = 0;  ///< end of the messages that stand in the ring
    std::atomic<std::uint64_t> _written = 0; ///< end of those that are written
    std::atomic<std::uint32_t> _calls = 0;   ///< each wakes the thread
    std::atomic<bool> _isRunning = false;
    std::atomic<bool> _isEnding = false;
    std::array<char, kCapacity> _ring{};

    // Of the thread.
    std::uint64_t _taken = 0;
    bool _isInLine = false;
    std::size_t _prefixSize = 0;
    std::array<char, 128> _prefix{};
    char* _linesEnd = nullptr;
    std::array<char, std::size_t{1} << 16> _lines{};

    pthread_t _thread{};
};

} // namespace brackwater
