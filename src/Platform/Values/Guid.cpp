#include "Platform/Values/Guid.h"

#include <fmt/format.h>

#include <cstdlib>

namespace brackwater {

Guid Guid::random() {
    Bytes bytes{};
    arc4random_buf(bytes.data(), bytes.size());
    bytes[6] = static_cast<std::uint8_t>((bytes[6] & 0x0F) | 0x40); // version 4: random
    bytes[8] = static_cast<std::uint8_t>((bytes[8] & 0x3F) | 0x80); // variant of RFC 4122
    return Guid(bytes);
}

std::string Guid::text() const {
    return fmt::format(
        "{:02x}{:02x}{:02x}{:02x}-{:02x}{:02x}-{:02x}{:02x}-{:02x}{:02x}-{:02x}{:02x}{:02x}{:02x}{:02x}{:02x}",
        _bytes[0], _bytes[1], _bytes[2], _bytes[3], _bytes[4], _bytes[5], _bytes[6], _bytes[7], _bytes[8], _bytes[9],
        _bytes[10], _bytes[11], _bytes[12], _bytes[13], _bytes[14], _bytes[15]);
}

} // namespace brackwater
