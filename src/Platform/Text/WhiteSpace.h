#pragma once

#include <string_view>

namespace brackwater {

/// The text without leading and trailing Unicode white space and newlines. Bytes that are not UTF-8 stay.
[[nodiscard]] std::string_view trimmed(std::string_view text) noexcept;

} // namespace brackwater
