#pragma once

#include "TWMSPFilterRunners/Command/StopRequests.h"

#include <string_view>

namespace brackwater {

/// Writes all bytes. If the reader of a pipe or terminal does not read, waits until it does or a stop request leaves no
/// more time: a run can be stopped even if nobody reads its output. False if not all bytes were written. `requests` may
/// be null.
[[nodiscard]] bool writeUnlessStopped(int descriptor, std::string_view bytes, const StopRequests* requests);

} // namespace brackwater
