#pragma once

#include <cstddef>
#include <limits>

namespace brackwater::test {

/// What the program asks its operator new for.
struct MemoryRequests {
    std::size_t count = 0;
    std::size_t failing = std::numeric_limits<std::size_t>::max(); ///< number, from 0, of the one that gets no memory
};

extern MemoryRequests memoryRequests;

} // namespace brackwater::test
