#include "Platform/Values/ProcessState.h"

namespace brackwater {

ProcessState& processState() noexcept {
    static constinit thread_local ProcessState state;
    return state;
}

} // namespace brackwater
