#include "Platform/Text/VisibleText.h"

#include <fmt/format.h>
#include <glib.h>

#include <iterator>

namespace brackwater {

namespace {

// Several languages need joiners, and soft hyphens are harmless.
constexpr gunichar kZeroWidthNonJoiner = 0x200C;
constexpr gunichar kZeroWidthJoiner = 0x200D;
constexpr gunichar kSoftHyphen = 0x00AD;
constexpr gunichar kLastCharacter = 0x10FFFF;

bool isVisible(gunichar character) {
    switch (g_unichar_type(character)) {
    case G_UNICODE_CONTROL:
    case G_UNICODE_LINE_SEPARATOR:
    case G_UNICODE_PARAGRAPH_SEPARATOR:
        return false;
    case G_UNICODE_FORMAT:
        return character == kZeroWidthNonJoiner || character == kZeroWidthJoiner || character == kSoftHyphen;
    default:
        return true;
    }
}

} // namespace

std::string visibleText(std::string_view text) {
    std::string visible;
    visible.reserve(text.size());
    while (!text.empty()) {
        const gunichar character = g_utf8_get_char_validated(text.data(), static_cast<gssize>(text.size()));
        // Invalid and truncated characters give one of the two greatest numbers, a zero byte the second.
        const bool isCharacter = character <= kLastCharacter;
        const std::size_t size = isCharacter ? static_cast<std::size_t>(g_unichar_to_utf8(character, nullptr)) : 1;
        if (!isCharacter)
            fmt::format_to(std::back_inserter(visible), "\\x{:02x}", static_cast<unsigned char>(text.front()));
        else if (isVisible(character))
            visible.append(text.substr(0, size));
        else
            fmt::format_to(std::back_inserter(visible), "\\u{{{:04x}}}", character);
        text.remove_prefix(size);
    }
    return visible;
}

} // namespace brackwater
