#include "TWMSPFilterRunners/Command/ProgressBoard.h"

#include <cerrno>
#include <new>
#include <sys/mman.h>
#include <system_error>

namespace brackwater {

static_assert(std::atomic<std::uint32_t>::is_always_lock_free, "slots are shared by processes");

void ProgressBoard::Unmap::operator()(void* memory) const noexcept { munmap(memory, size); }

ProgressBoard::ProgressBoard(std::size_t slots) : _memory(nullptr, Unmap{slots * sizeof(ProgressSlot)}) {
    void* memory =
        mmap(nullptr, slots * sizeof(ProgressSlot), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED)
        throw std::system_error(errno, std::generic_category(), "no memory for the progress");
    _memory.reset(memory);
    _slots = {new (memory) ProgressSlot[slots](), slots}; // NOLINT(cppcoreguidelines-owning-memory): nothing to delete
}

} // namespace brackwater
