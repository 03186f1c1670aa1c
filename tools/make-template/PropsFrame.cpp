#include "PropsFrame.h"

namespace brackwater::layout {

PropsFrame& PropsFrame::sized(std::uint32_t type, const Bytes& payload) {
    return open(type, payload, static_cast<std::uint32_t>(payload.size()));
}

PropsFrame& PropsFrame::open(std::uint32_t type, const Bytes& payload, std::uint32_t thirdWord) {
    _properties.u32(static_cast<std::uint32_t>(payload.size())).u32(type).u32(thirdWord).bytes(payload);
    if (payload.size() % 2 != 0)
        _properties.u8(0xFF);
    ++_count;
    return *this;
}

Bytes PropsFrame::take() {
    const auto sizeBehindFirstWord = static_cast<std::uint32_t>(16 + _properties.size() - 4);
    ByteBuilder frame;
    frame.u32(sizeBehindFirstWord).u32(sizeBehindFirstWord).u32(_magic).u16(_count).u16(0).bytes(_properties.take());
    return frame.take();
}

} // namespace brackwater::layout
