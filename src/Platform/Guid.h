#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace brackwater {

/// The 16 bytes of a UUID, in the byte order of its textual form.
class Guid {
public:
    using Bytes = std::array<std::uint8_t, 16>;

    /// The zero GUID.
    constexpr Guid() = default;
    explicit constexpr Guid(const Bytes& bytes) : _bytes(bytes) {}

    /// A fresh random UUID (version 4).
    [[nodiscard]] static Guid random();

    [[nodiscard]] constexpr const Bytes& bytes() const noexcept { return _bytes; }
    /// "01234567-89ab-cdef-0123-456789abcdef".
    [[nodiscard]] std::string text() const;

    friend bool operator==(const Guid&, const Guid&) = default;

private:
    Bytes _bytes{};
};

} // namespace brackwater
