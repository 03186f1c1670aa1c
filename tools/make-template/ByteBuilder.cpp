#include "ByteBuilder.h"

#include <bit>

namespace brackwater::layout {

ByteBuilder& ByteBuilder::u8(std::uint8_t value) {
    _bytes.push_back(value);
    return *this;
}

ByteBuilder& ByteBuilder::u16(std::uint16_t value) {
    return u8(static_cast<std::uint8_t>(value & 0xFF)).u8(static_cast<std::uint8_t>(value >> 8));
}

ByteBuilder& ByteBuilder::u32(std::uint32_t value) {
    return u16(static_cast<std::uint16_t>(value & 0xFFFF)).u16(static_cast<std::uint16_t>(value >> 16));
}

ByteBuilder& ByteBuilder::f64(double value) {
    const auto bits = std::bit_cast<std::uint64_t>(value);
    return u32(static_cast<std::uint32_t>(bits & 0xFFFFFFFF)).u32(static_cast<std::uint32_t>(bits >> 32));
}

ByteBuilder& ByteBuilder::zeroes(std::size_t count) {
    _bytes.resize(_bytes.size() + count);
    return *this;
}

ByteBuilder& ByteBuilder::bytes(std::span<const std::uint8_t> value) {
    _bytes.insert(_bytes.end(), value.begin(), value.end());
    return *this;
}

ByteBuilder& ByteBuilder::ascii(std::string_view text) {
    for (const char c : text)
        u8(static_cast<std::uint8_t>(c));
    return *this;
}

ByteBuilder& ByteBuilder::text16(std::string_view text) {
    for (const char c : text)
        u16(static_cast<std::uint8_t>(c));
    return u16(0);
}

void put16(Bytes& bytes, std::size_t offset, std::uint16_t value) {
    bytes.at(offset) = static_cast<std::uint8_t>(value & 0xFF);
    bytes.at(offset + 1) = static_cast<std::uint8_t>(value >> 8);
}

void put32(Bytes& bytes, std::size_t offset, std::uint32_t value) {
    put16(bytes, offset, static_cast<std::uint16_t>(value & 0xFFFF));
    put16(bytes, offset + 2, static_cast<std::uint16_t>(value >> 16));
}

} // namespace brackwater::layout
