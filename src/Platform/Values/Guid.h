#pragma once

#include <array>
#include <cstddef>
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

    /// A new random UUID (version 4).
    [[nodiscard]] static Guid random();

    /// The same UUID in Windows byte order, whose first three groups are little-endian; and back.
    [[nodiscard]] constexpr Guid inWindowsOrder() const noexcept {
        Bytes swapped = _bytes;
        constexpr std::array<std::size_t, 8> kPlaces = {3, 2, 1, 0, 5, 4, 7, 6};
        for (std::size_t i = 0; i < kPlaces.size(); ++i)
            swapped[i] = _bytes[kPlaces[i]];
        return Guid(swapped);
    }

    [[nodiscard]] constexpr const Bytes& bytes() const noexcept { return _bytes; }
    /// "01234567-89ab-cdef-0123-456789abcdef".
    [[nodiscard]] std::string text() const;

    friend bool operator==(const Guid&, const Guid&) = default;

private:
    Bytes _bytes{};
};

} // namespace brackwater
