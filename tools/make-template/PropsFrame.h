#pragma once

#include "ByteBuilder.h"

namespace brackwater::layout {

/// Magic numbers of the frames: the project's own properties, and those inside a storage of rows.
inline constexpr std::uint32_t kProjectPropsMagic = 0x00011528;
inline constexpr std::uint32_t kStoragePropsMagic = 0x00016974;

/// Builds a Props stream: a 16-byte header, then properties with a 12-byte head and a payload padded to an even length.
class PropsFrame {
public:
    explicit PropsFrame(std::uint32_t magic) : _magic(magic) {}

    /// A property of fixed size: the third word of its head repeats the size.
    PropsFrame& sized(std::uint32_t type, const Bytes& payload);
    /// A property whose third word is 0 in real files: texts and blocks.
    PropsFrame& open(std::uint32_t type, const Bytes& payload, std::uint32_t thirdWord = 0);

    PropsFrame& number16(std::uint32_t type, std::uint16_t value) {
        return sized(type, ByteBuilder().u16(value).take());
    }
    PropsFrame& number32(std::uint32_t type, std::uint32_t value) {
        return sized(type, ByteBuilder().u32(value).take());
    }
    PropsFrame& text(std::uint32_t type, std::string_view value) {
        return open(type, ByteBuilder().text16(value).take());
    }

    [[nodiscard]] Bytes take();

private:
    std::uint32_t _magic;
    std::uint16_t _count = 0;
    ByteBuilder _properties;
};

} // namespace brackwater::layout
