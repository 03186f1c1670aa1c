#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace brackwater {

/// Appends a UTF-8 text as ASCII, one byte per character. False, with nothing appended, if a character is not ASCII.
[[nodiscard]] bool appendAsASCII(std::vector<std::uint8_t>& bytes, std::string_view text);

/// Appends a UTF-8 text in the Windows code page 1252, one byte per character. False, with nothing appended, if the
/// page lacks a character or the text is not well-formed UTF-8.
[[nodiscard]] bool appendAsCodePage1252(std::vector<std::uint8_t>& bytes, std::string_view text);

/// The byte of a character in the Windows code page 1252; nothing if the page lacks it.
[[nodiscard]] std::optional<std::uint8_t> byteInCodePage1252(std::int32_t character);

/// Appends a UTF-8 text as UTF-16, little-endian, without byte-order mark. False, with nothing appended, if the text is
/// not well-formed UTF-8.
[[nodiscard]] bool appendAsUTF16LE(std::vector<std::uint8_t>& bytes, std::string_view text);

/// Bytes of the longest prefix of a UTF-8 text that has at most `units` units in UTF-16. Never splits a character.
[[nodiscard]] std::size_t sizeOfPrefix(std::string_view text, std::size_t units);

} // namespace brackwater
