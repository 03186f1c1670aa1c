#include "TextOutput.h"

#include <array>
#include <cstdint>

namespace brackwater::inspect {

std::size_t characterSize(std::string_view text) {
    if (text.empty())
        return 0;
    const auto byteAt = [text](std::size_t i) -> std::uint32_t { return static_cast<unsigned char>(text[i]); };
    const std::uint32_t lead = byteAt(0);
    if (lead < 0x80)
        return 1;
    const std::size_t size = lead >= 0xF0 ? 4 : (lead >= 0xE0 ? 3 : 2);
    if (lead < 0xC2 || lead > 0xF4 || text.size() < size)
        return 0;
    std::uint32_t code = lead & (0x7FU >> size);
    for (std::size_t i = 1; i < size; ++i) {
        if ((byteAt(i) & 0xC0) != 0x80)
            return 0;
        code = code << 6 | (byteAt(i) & 0x3F);
    }
    constexpr std::array<std::uint32_t, 5> least{0, 0, 0x80, 0x800, 0x10000};
    const bool isSurrogate = code >= 0xD800 && code < 0xE000;
    return code < least.at(size) || code > 0x10FFFF || isSurrogate ? 0 : size;
}

} // namespace brackwater::inspect
