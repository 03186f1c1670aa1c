#include "Platform/TextEncoding.h"

#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <cstddef>

namespace brackwater {

namespace {

std::uint8_t* putUnit(std::uint8_t* place, std::uint32_t unit) noexcept {
    *place++ = static_cast<std::uint8_t>(unit & 0xFF);
    *place++ = static_cast<std::uint8_t>(unit >> 8 & 0xFF);
    return place;
}

} // namespace

bool appendAsASCII(std::vector<std::uint8_t>& bytes, std::string_view text) {
    if (!std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; }))
        return false;
    bytes.insert(bytes.end(), text.begin(), text.end());
    return true;
}

bool appendAsUTF16LE(std::vector<std::uint8_t>& bytes, std::string_view text) {
    const std::size_t before = bytes.size();
    // No character takes more than two bytes of UTF-16 for each byte of its UTF-8.
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

} // namespace brackwater
