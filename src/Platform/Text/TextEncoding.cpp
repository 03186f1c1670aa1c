#include "Platform/Text/TextEncoding.h"

#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>

namespace brackwater {

namespace {

std::uint8_t* putUnit(std::uint8_t* place, std::uint32_t unit) noexcept {
    *place++ = static_cast<std::uint8_t>(unit & 0xFF);
    *place++ = static_cast<std::uint8_t>(unit >> 8 & 0xFF);
    return place;
}

/// Characters of the bytes 0x80 to 0x9F, the only ones that differ from Latin-1; 0 for undefined bytes.
constexpr std::array<std::uint16_t, 32> kCodePage1252 = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

} // namespace

std::optional<std::uint8_t> byteInCodePage1252(std::int32_t character) {
    if ((character >= 0 && character < 0x80) || (character >= 0xA0 && character <= 0xFF))
        return static_cast<std::uint8_t>(character);
    const auto* found =
        character > 0xFF ? std::find(kCodePage1252.begin(), kCodePage1252.end(), character) : kCodePage1252.end();
    if (found == kCodePage1252.end())
        return std::nullopt;
    return static_cast<std::uint8_t>(0x80 + (found - kCodePage1252.begin()));
}

bool appendAsASCII(std::vector<std::uint8_t>& bytes, std::string_view text) {
    if (!std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; }))
        return false;
    bytes.insert(bytes.end(), text.begin(), text.end());
    return true;
}

bool appendAsCodePage1252(std::vector<std::uint8_t>& bytes, std::string_view text) {
    const std::size_t before = bytes.size();
    const auto* units = reinterpret_cast<const std::uint8_t*>(text.data());
    const std::size_t length = text.size();
    for (std::size_t i = 0; i < length;) {
        UChar32 character = 0;
        U8_NEXT(units, i, length, character);
        const std::optional<std::uint8_t> byte = byteInCodePage1252(character);
        if (!byte) {
            bytes.resize(before);
            return false;
        }
        bytes.push_back(*byte);
    }
    return true;
}

bool appendAsUTF16LE(std::vector<std::uint8_t>& bytes, std::string_view text) {
    const std::size_t before = bytes.size();
    // Each byte of UTF-8 needs at most two bytes of UTF-16.
    bytes.resize(before + 2 * text.size());
    std::uint8_t* place = bytes.data() + before;

    const auto* units = reinterpret_cast<const std::uint8_t*>(text.data());
    const std::size_t length = text.size();
    for (std::size_t i = 0; i < length;) {
        UChar32 character = 0;
        U8_NEXT(units, i, length, character);
        if (character < 0) {
            bytes.resize(before);
            return false;
        }
        if (U_IS_BMP(character)) {
            place = putUnit(place, static_cast<std::uint32_t>(character));
        } else {
            place = putUnit(place, U16_LEAD(character));
            place = putUnit(place, U16_TRAIL(character));
        }
    }
    bytes.resize(static_cast<std::size_t>(place - bytes.data()));
    return true;
}

std::size_t sizeOfPrefix(std::string_view text, std::size_t units) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    std::size_t size = 0;
    for (std::size_t i = 0, used = 0; i < text.size(); size = i) {
        UChar32 character = 0;
        U8_NEXT(bytes, i, text.size(), character);
        used += character < 0 ? 1 : U16_LENGTH(character);
        if (used > units)
            break;
    }
    return size;
}

} // namespace brackwater
