#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace brackwater {

/// Prefix readings of a text, as the platform's `integerValue` and its relatives do them: leading blanks are skipped,
/// what follows the value is ignored, a value that the type cannot hold gives its nearest limit (for a double
/// infinity, or 0.0 for one too small), and a text that does not begin with a value gives 0, 0.0 or false. Blanks are
/// the ASCII ones: space, tab, line feed, vertical tab, form feed, carriage return.
[[nodiscard]] std::int64_t integerValue(std::string_view text) noexcept;
[[nodiscard]] std::int32_t intValue(std::string_view text) noexcept;
/// Decimal point is "." whatever the locale.
[[nodiscard]] double doubleValue(std::string_view text) noexcept;
/// Leading blanks, an optional sign and leading zeros are skipped; then Y, y, T, t or a digit from 1 to 9 is true.
[[nodiscard]] bool boolValue(std::string_view text) noexcept;

/// A scanner's outcome: the value and how many bytes of the text it took, blanks in front included.
template <typename Value>
struct Scanned {
    Value value;
    std::size_t length;
};

/// Scanners: like the readings above, but nothing where the text does not begin with a value.
[[nodiscard]] std::optional<Scanned<std::int64_t>> scanInteger(std::string_view text) noexcept;
[[nodiscard]] std::optional<Scanned<std::int32_t>> scanInt(std::string_view text) noexcept;
[[nodiscard]] std::optional<Scanned<double>> scanDouble(std::string_view text) noexcept;

} // namespace brackwater
