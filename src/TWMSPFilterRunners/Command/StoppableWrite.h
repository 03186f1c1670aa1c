#pragma once

#include <string_view>

namespace brackwater {

/// Writes all bytes. Where the reader of a pipe or terminal does not read, it waits until that, or until
/// `stopDescriptor` can be read from: a run can be ended although nobody reads what it tells. False where not all were
/// written.
[[nodiscard]] bool writeUnlessStopped(int descriptor, std::string_view bytes, int stopDescriptor);

} // namespace brackwater
