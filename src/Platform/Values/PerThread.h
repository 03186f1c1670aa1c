#pragma once

#include <array>
#include <cstddef>

namespace brackwater {

/// True on the thread that helps the one that exports, from its beginning on.
inline constinit thread_local bool isHelperThread = false;

/// A value of its own for each of the two threads that work on one export: the thread that exports, and its helper.
template <typename Value>
class PerThread {
public:
    [[nodiscard]] Value& own() noexcept { return _slots[isHelperThread ? 1 : 0].value; }
    [[nodiscard]] const Value& own() const noexcept { return _slots[isHelperThread ? 1 : 0].value; }

private:
    // A cache line of the processor each, so that no thread waits for the other's.
    struct alignas(64) Slot {
        Value value{};
    };
    std::array<Slot, 2> _slots{};
};

} // namespace brackwater
