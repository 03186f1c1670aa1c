#pragma once

#include "TWMSPFilterRunners/Command/StopRequests.h"

#include <string_view>

namespace brackwater {

/// Writes all bytes. Where the reader of a pipe or terminal does not read, it waits until that, or until a request to
/// end comes or leaves no more time: a run can be ended although nobody reads what it tells. False where not all were
/// written. `requests` may be null.
[[nodiscard]] bool writeUnlessStopped(int descriptor, std::string_view bytes, const StopRequests* requests);

} // namespace brackwater
