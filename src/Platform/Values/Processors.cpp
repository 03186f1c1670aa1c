#include "Platform/Values/Processors.h"

#include <algorithm>
#include <sched.h>

namespace brackwater {

int usableProcessors() noexcept {
    cpu_set_t processors;
    const int count = sched_getaffinity(0, sizeof(processors), &processors) == 0 ? CPU_COUNT(&processors) : 1;
    return std::max(count, 1);
}

} // namespace brackwater
