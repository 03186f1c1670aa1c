#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace brackwater::inspect {

using Bytes = std::vector<std::uint8_t>;
using Guid = std::array<std::uint8_t, 16>;

/// Bytes of a file that nobody vouches for: every read says whether the bytes are there.
class ByteView {
public:
    ByteView() = default;
    ByteView(std::span<const std::uint8_t> bytes) : _bytes(bytes) {} // NOLINT: a view of bytes is what it is
    ByteView(const Bytes& bytes) : _bytes(bytes) {}                  // NOLINT

    [[nodiscard]] std::size_t size() const noexcept { return _bytes.size(); }
    [[nodiscard]] bool empty() const noexcept { return _bytes.empty(); }
    [[nodiscard]] std::span<const std::uint8_t> span() const noexcept { return _bytes; }
    [[nodiscard]] bool has(std::size_t offset, std::size_t count) const noexcept {
        return offset <= _bytes.size() && count <= _bytes.size() - offset;
    }

    [[nodiscard]] std::optional<std::uint8_t> u8(std::size_t offset) const { return number<std::uint8_t>(offset); }
    [[nodiscard]] std::optional<std::uint16_t> u16(std::size_t offset) const { return number<std::uint16_t>(offset); }
    [[nodiscard]] std::optional<std::uint32_t> u32(std::size_t offset) const { return number<std::uint32_t>(offset); }
    [[nodiscard]] std::optional<std::int32_t> i32(std::size_t offset) const;
    [[nodiscard]] std::optional<double> f64(std::size_t offset) const;
    [[nodiscard]] std::optional<Guid> guid(std::size_t offset) const;
    /// The bit with this number, counted from bit 0 of the first byte; false past the end.
    [[nodiscard]] bool bit(std::size_t number) const noexcept;
    /// The bytes from the offset on, at most count of them; empty past the end.
    [[nodiscard]] ByteView part(std::size_t offset, std::size_t count = SIZE_MAX) const noexcept;
    /// UTF-16 text up to its terminator or the end, as UTF-8. What is no character becomes U+FFFD.
    [[nodiscard]] std::string text16() const;
    /// One-byte text up to its terminator or the end, in the given Windows code page, as UTF-8.
    [[nodiscard]] std::string text8(unsigned codePage) const;
    /// Lower-case hexadecimal digits of at most `most` bytes, "..." behind them where bytes are left out.
    [[nodiscard]] std::string hex(std::size_t most) const;

private:
    // Here, since maps and records are read number by number.
    template <typename Number>
    [[nodiscard]] std::optional<Number> number(std::size_t offset) const {
        if (!has(offset, sizeof(Number)))
            return std::nullopt;
        Number number = 0;
        for (std::size_t i = 0; i < sizeof(Number); ++i)
            number = static_cast<Number>(number | Number{_bytes[offset + i]} << (8 * i));
        return number;
    }

    std::span<const std::uint8_t> _bytes;
};

/// Appends a code point as UTF-8; what is no character as U+FFFD.
void appendUtf8(std::string& text, std::uint32_t codePoint);
/// Text of a Windows code page as UTF-8; bytes that the page does not have, or of an unknown page, become U+FFFD.
[[nodiscard]] std::string fromCodePage(std::string_view bytes, unsigned codePage);

} // namespace brackwater::inspect
