#include "Platform/Time/Date.h"

#include <chrono>

namespace brackwater {

Date Date::now() {
    const auto sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
    return {std::chrono::duration<double>(sinceEpoch).count()};
}

} // namespace brackwater
