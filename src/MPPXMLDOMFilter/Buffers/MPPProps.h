#pragma once

#include "MPPXMLDOMFilter/Buffers/MPPOffsetMarkedData.h"

namespace brackwater {

/// The Props frame: a 16-byte header, then elements with a 12-byte head each (payload size, type, third word). The
/// header is patched by `close`, so a frame stays whole in memory until then.
class MPPProps : public MPPOffsetMarkedData {
public:
    static constexpr std::uint32_t kDefaultMagic = 0x00016974;

    explicit MPPProps(std::uint32_t magicInt = kDefaultMagic);

    void open();
    std::uint64_t startNewElementForType(std::uint32_t type, std::uint32_t headerEnding);
    void closeCurrentElement() override;
    void close();
    /// Does nothing while the frame is open.
    void clearBuffer() override;

    /// When set, an element's third word repeats its payload's size.
    [[nodiscard]] bool writeSizeTwice() const noexcept { return _writeSizeTwice; }
    void setWriteSizeTwice(bool twice) noexcept { _writeSizeTwice = twice; }

private:
    std::uint32_t _magicInt;
    bool _closed = true;
    bool _writeSizeTwice = false;
};

} // namespace brackwater
