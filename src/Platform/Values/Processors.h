#pragma once

namespace brackwater {

/// How many processors this process may use, at least 1.
[[nodiscard]] int usableProcessors() noexcept;

} // namespace brackwater
