#pragma once

#include "Platform/Values/Guid.h"
#include "support/MemoryWriter.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace brackwater::test {

/// Bytes of a row or stream: zeros, then little-endian values at offsets. Grows if a value exceeds its end.
class ByteImage {
public:
    explicit ByteImage(std::size_t size = 0) : _bytes(size) {}

    /// The lowest one, two or four bytes of a value.
    ByteImage& byte(std::size_t offset, std::uint64_t value) { return put(offset, value, 1); }
    ByteImage& word(std::size_t offset, std::uint64_t value) { return put(offset, value, 2); }
    ByteImage& integer(std::size_t offset, std::uint64_t value) { return put(offset, value, 4); }
    ByteImage& real(std::size_t offset, double value);
    /// Tenths of a minute and days.
    ByteImage& date(std::size_t offset, unsigned tenths, unsigned days) {
        return word(offset, tenths).word(offset + 2, days);
    }
    ByteImage& noDate(std::size_t offset) { return integer(offset, 0xFFFFFFFF); }
    ByteImage& guid(std::size_t offset, const Guid& guid);
    /// UTF-16 of an ASCII text with its terminator.
    ByteImage& text(std::size_t offset, std::string_view text);

    [[nodiscard]] const Bytes& bytes() const noexcept { return _bytes; }
    [[nodiscard]] std::size_t size() const noexcept { return _bytes.size(); }

private:
    ByteImage& put(std::size_t offset, std::uint64_t value, std::size_t count);

    Bytes _bytes;
};

/// Only the bytes of a text.
[[nodiscard]] inline Bytes text16(std::string_view text) { return ByteImage().text(0, text).bytes(); }

/// `size` bytes of a stream; a failure and the available bytes if the stream is shorter.
[[nodiscard]] Bytes slice(const Bytes& stream, std::size_t offset, std::size_t size);
[[nodiscard]] std::uint16_t wordAt(const Bytes& stream, std::size_t offset);
[[nodiscard]] std::uint32_t integerAt(const Bytes& stream, std::size_t offset);
[[nodiscard]] double realAt(const Bytes& stream, std::size_t offset);

/// Equal bytes; otherwise lists the offsets that differ.
[[nodiscard]] testing::AssertionResult sameBytes(const Bytes& actual, const Bytes& expected);
[[nodiscard]] inline testing::AssertionResult sameBytes(const Bytes& actual, const ByteImage& expected) {
    return sameBytes(actual, expected.bytes());
}

} // namespace brackwater::test
