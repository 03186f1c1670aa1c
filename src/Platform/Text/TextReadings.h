#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace brackwater {

/// Parse the start of a text like the platform's `integerValue` and its relatives: they skip leading blanks and ignore
/// what follows the value; an out-of-range value gives the nearest limit (for a double infinity, or 0.0 if it is too
/// small), and a text that does not begin with a value gives 0, 0.0 or false. Blanks are the ASCII ones: space, tab,
/// line feed, vertical tab, form feed, carriage return.
[[nodiscard]] std::int64_t integerValue(std::string_view text) noexcept;
[[nodiscard]] std::int32_t intValue(std::string_view text) noexcept;
/// The decimal point is "." in every locale.
[[nodiscard]] double doubleValue(std::string_view text) noexcept;
/// Skips leading blanks, an optional sign and leading zeros; then Y, y, T, t or a digit from 1 to 9 is true.
[[nodiscard]] bool boolValue(std::string_view text) noexcept;

/// A scanner's result: the value and the number of bytes parsed, including leading blanks.
template <typename Value>
struct Scanned {
    Value value;
    std::size_t length;
};

/// Scanners: like the functions above, but nothing if the text does not begin with a value.
[[nodiscard]] std::optional<Scanned<std::int64_t>> scanInteger(std::string_view text) noexcept;
[[nodiscard]] std::optional<Scanned<std::int32_t>> scanInt(std::string_view text) noexcept;
[[nodiscard]] std::optional<Scanned<double>> scanDouble(std::string_view text) noexcept;

} // namespace brackwater
