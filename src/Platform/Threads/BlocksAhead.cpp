#include "Platform/Threads/BlocksAhead.h"

#include "Platform/Log/FatalSignals.h"
#include "Platform/Values/PerThread.h"
#include "Platform/Values/Processors.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace brackwater {

namespace {

// Bounds the memory for what waits to be taken.
constexpr std::size_t kFarthestAhead = 8;

} // namespace

BlocksAhead::BlocksAhead(Blocks blocks, bool hasHelper, std::function<void(std::size_t)> doBlock)
    : _doBlock(std::move(doBlock)), _blocks(blocks.count()) {
    if (hasHelper)
        start();
}

BlocksAhead::~BlocksAhead() {
    if (!_helper.joinable())
        return;
    _front = _blocks.size();
    _front.notify_one();
    _helper.join();
}

void BlocksAhead::start() {
    // Only the exporting thread handles signals.
    const SignalsHeldBack heldBack;
    try {
        _helper = std::thread([this, reader = LogSink::innermost(), processor = currentProcessor()] {
            leaveProcessor(processor);
            help(reader);
        });
    } catch (const std::system_error&) {
        // The owner does all blocks.
    }
}

bool BlocksAhead::take(std::size_t block) {
    _front = block;
    _front.notify_one();
    if (claim(block, State::OfOwner))
        return false;
    Block& taken = _blocks[block];
    taken.state.wait(State::OfHelper);
    std::exchange(taken.lines, {}).log();
    if (taken.failure)
        std::rethrow_exception(std::exchange(taken.failure, nullptr));
    return true;
}

// Takes every other block, so that both threads always have one to go on with. A block that the owner reached first is
// skipped.
void BlocksAhead::help(const LogSink* reader) noexcept {
    isHelperThread = true;
    LogCollector log(reader);
    std::size_t next = 1;
    for (std::size_t front = _front; front < _blocks.size(); front = _front) {
        next = std::max(next, front + 1);
        if (next >= _blocks.size())
            return;
        if (next > front + kFarthestAhead) {
            _front.wait(front);
            continue;
        }
        if (claim(next, State::OfHelper) && !doAhead(next, log))
            return;
        next += 2;
    }
}

bool BlocksAhead::doAhead(std::size_t number, LogCollector& log) noexcept {
    Block& block = _blocks[number];
    bool succeeded = true;
    try {
        _doBlock(number);
    } catch (...) {
        block.failure = std::current_exception();
        succeeded = false;
    }
    block.lines = log.take();
    block.state = State::Done;
    block.state.notify_one();
    return succeeded;
}

bool BlocksAhead::claim(std::size_t block, State state) noexcept {
    State expected = State::Free;
    return _blocks[block].state.compare_exchange_strong(expected, state);
}

} // namespace brackwater
