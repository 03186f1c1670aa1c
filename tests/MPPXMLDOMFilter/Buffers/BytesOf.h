#pragma once

#include "MPPXMLDOMFilter/Buffers/MPPData.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace brackwater::test {

using Bytes = std::vector<std::uint8_t>;

/// What a buffer holds now.
inline Bytes bytesOf(const MPPData& data) { return {data.data().begin(), data.data().end()}; }

/// Bytes put together from texts, each taken as it stands, embedded zeros included.
inline Bytes bytesOfText(std::string_view text) { return {text.begin(), text.end()}; }

/// The 32-bit words of a buffer's start, little-endian.
inline std::vector<std::uint32_t> wordsOf(const MPPData& data) {
    std::vector<std::uint32_t> words;
    const auto bytes = data.data();
    for (std::size_t i = 0; i + 4 <= bytes.size(); i += 4)
        words.push_back(bytes[i] | std::uint32_t{bytes[i + 1]} << 8 | std::uint32_t{bytes[i + 2]} << 16 |
                        std::uint32_t{bytes[i + 3]} << 24);
    return words;
}

} // namespace brackwater::test
