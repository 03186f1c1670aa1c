#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace brackwater::layout {

using Bytes = std::vector<std::uint8_t>;
using GuidBytes = std::array<std::uint8_t, 16>;

/// Appends values in the file's little-endian encoding.
class ByteBuilder {
public:
    ByteBuilder& u8(std::uint8_t value);
    ByteBuilder& u16(std::uint16_t value);
    ByteBuilder& u32(std::uint32_t value);
    ByteBuilder& f64(double value);
    ByteBuilder& zeroes(std::size_t count);
    ByteBuilder& bytes(std::span<const std::uint8_t> value);
    /// The ASCII characters, without a terminator.
    ByteBuilder& ascii(std::string_view text);
    /// ASCII text as UTF-16 with its two-byte terminator.
    ByteBuilder& text16(std::string_view text);

    [[nodiscard]] std::size_t size() const noexcept { return _bytes.size(); }
    [[nodiscard]] Bytes take() noexcept { return std::move(_bytes); }

private:
    Bytes _bytes;
};

/// Replaces bytes at an offset; the value must be within the bytes.
void put16(Bytes& bytes, std::size_t offset, std::uint16_t value);
void put32(Bytes& bytes, std::size_t offset, std::uint32_t value);

} // namespace brackwater::layout
