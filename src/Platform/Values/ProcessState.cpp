#include "Platform/Values/ProcessState.h"

namespace brackwater {

ProcessState& processState() noexcept {
    static constinit ProcessState state;
    return state;
}

} // namespace brackwater
