#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace brackwater {

/// Appends a UTF-8 text as ASCII, one byte a character. False, and nothing appended, when a character lies outside
/// ASCII.
[[nodiscard]] bool appendAsASCII(std::vector<std::uint8_t>& bytes, std::string_view text);

/// Appends a UTF-8 text in the Windows code page 1252, one byte a character. False, and nothing appended, when the page
/// does not have a character or the text is not well-formed UTF-8.
[[nodiscard]] bool appendAsCodePage1252(std::vector<std::uint8_t>& bytes, std::string_view text);

/// The byte of a character in the Windows code page 1252; nothing where the page does not have it.
[[nodiscard]] std::optional<std::uint8_t> byteInCodePage1252(std::int32_t character);

/// Appends a UTF-8 text as UTF-16, little-endian, without byte-order mark. False, and nothing appended, when the text
/// is not well-formed UTF-8.
[[nodiscard]] bool appendAsUTF16LE(std::vector<std::uint8_t>& bytes, std::string_view text);

/// Bytes of the longest beginning of a UTF-8 text that has at most so many units in UTF-16. No character is cut.
[[nodiscard]] std::size_t sizeOfPrefix(std::string_view text, std::size_t units);

} // namespace brackwater
