#include "MemoryRequests.h"

#include <cstdlib>
#include <new>

namespace brackwater::test {

MemoryRequests memoryRequests;

} // namespace brackwater::test

using brackwater::test::memoryRequests;

void* operator new(std::size_t size) {
    if (memoryRequests.count++ == memoryRequests.failing)
        throw std::bad_alloc();
    if (void* memory = std::malloc(size == 0 ? 1 : size))
        return memory;
    throw std::bad_alloc();
}
// Sorting asks in this way, and makes do without where there is none.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return memoryRequests.count++ == memoryRequests.failing ? nullptr : std::malloc(size == 0 ? 1 : size);
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { std::free(memory); }
