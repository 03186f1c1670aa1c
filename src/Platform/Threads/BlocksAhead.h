#pragma once

#include "Platform/Log/LogCollector.h"

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <exception>
#include <functional>
#include <thread>
#include <vector>

namespace brackwater {

/// Many items as numbered blocks of few.
class Blocks {
public:
    explicit Blocks(std::size_t items) noexcept : _items(items) {}

    [[nodiscard]] std::size_t count() const noexcept { return (_items + kItems - 1) / kItems; }
    /// The block's first item, and the one behind its last.
    [[nodiscard]] std::size_t beginOf(std::size_t block) const noexcept { return std::min(block * kItems, _items); }
    [[nodiscard]] std::size_t endOf(std::size_t block) const noexcept { return beginOf(block + 1); }

private:
    // Few enough that no thread waits long for another one's block, enough that handing a block over costs little.
    static constexpr std::size_t kItems = 200;

    std::size_t _items;
};

/// Blocks that one thread goes through in order, while a helper does some of them ahead of it. The log lines and the
/// exception of a helper's block appear when the block is taken, so that the log is the same with and without a helper.
///
/// No other thread logs meanwhile. A helper's block must not touch data that other blocks or the owner change.
class BlocksAhead {
public:
    /// `doBlock` does one block on the helper's thread. Without a helper, or if no thread can be started, the owner
    /// does all blocks.
    BlocksAhead(Blocks blocks, bool hasHelper, std::function<void(std::size_t)> doBlock);
    /// Waits for the block that the helper is in; it begins no other.
    ~BlocksAhead();
    BlocksAhead(const BlocksAhead&) = delete;
    BlocksAhead& operator=(const BlocksAhead&) = delete;

    /// To be called for all blocks in order. False if the owner has to do the block itself. Otherwise waits for the
    /// helper to finish it, writes its log lines and throws its exception.
    [[nodiscard]] bool take(std::size_t block);

private:
    enum class State { Free, OfOwner, OfHelper, Done };

    struct Block {
        std::atomic<State> state = State::Free;
        CollectedLines lines;
        std::exception_ptr failure;
    };

    void start();
    void help(const LogSink* reader) noexcept;
    /// False if the block failed: no later one counts.
    [[nodiscard]] bool doAhead(std::size_t block, LogCollector& log) noexcept;
    [[nodiscard]] bool claim(std::size_t block, State state) noexcept;

    std::function<void(std::size_t)> _doBlock;
    std::vector<Block> _blocks;
    std::atomic<std::size_t> _front = 0; ///< the block that the owner is at; behind the last one, the helper ends
    std::thread _helper;
};

} // namespace brackwater
