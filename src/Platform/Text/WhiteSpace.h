#pragma once

#include <string_view>

namespace brackwater {

/// The text without the white space and newlines of Unicode at both of its ends. Bytes that are not UTF-8 stay.
[[nodiscard]] std::string_view trimmed(std::string_view text) noexcept;

} // namespace brackwater
