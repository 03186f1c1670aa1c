#include "Platform/Values/Processors.h"

#include <algorithm>
#include <cstddef>
#include <sched.h>

namespace brackwater {

int usableProcessors() noexcept {
    cpu_set_t processors;
    const int count = sched_getaffinity(0, sizeof(processors), &processors) == 0 ? CPU_COUNT(&processors) : 1;
    return std::max(count, 1);
}

int currentProcessor() noexcept { return sched_getcpu(); }

void leaveProcessor(int processor) noexcept {
    cpu_set_t usable;
    if (processor < 0 || processor >= CPU_SETSIZE || sched_getaffinity(0, sizeof usable, &usable) != 0)
        return;
    cpu_set_t others = usable;
    CPU_CLR(static_cast<std::size_t>(processor), &others);
    if (CPU_COUNT(&others) == 0)
        return;
    // The move is done when the first call returns; the thread may be moved again later.
    sched_setaffinity(0, sizeof others, &others);
    sched_setaffinity(0, sizeof usable, &usable);
}

} // namespace brackwater
