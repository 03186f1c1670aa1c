#include "PropsFrame.h"

#include <fmt/format.h>

namespace brackwater::inspect {

namespace {

constexpr std::size_t kHeaderSize = 16, kHeadSize = 12;
// The one property whose size stands in its third word.
constexpr std::uint32_t kSizeInThirdWord = 0x3540000B;

std::string placeOf(std::size_t number, std::uint32_t type) {
    return fmt::format("property {} of type 0x{:08X}", number, type);
}

} // namespace

PropsFrame::PropsFrame(ByteView stream, std::string_view where, Complaints& complaints) {
    if (stream.size() < kHeaderSize) {
        complaints.add(where, "shorter than the header of a property stream");
        return;
    }
    // A size below the stream's is no fault: real files leave out a property or have bytes behind the last one.
    if (*stream.u32(0) > stream.size() - 4)
        complaints.add(where, "the size in the header is greater than the stream's");
    _magic = *stream.u32(8);
    // The upper half of the count is rubbish in some real files.
    const std::size_t count = *stream.u16(12);
    std::size_t offset = kHeaderSize;
    for (std::size_t number = 0; number < count; ++number) {
        if (!stream.has(offset, kHeadSize)) {
            complaints.add(where, "fewer properties than counted", fmt::format("{} of {}", number, count));
            return;
        }
        Property property{*stream.u32(offset + 4), *stream.u32(offset + 8), {}};
        const std::size_t size = property.type == kSizeInThirdWord ? property.thirdWord : *stream.u32(offset);
        if (!stream.has(offset + kHeadSize, size)) {
            complaints.add(where, "a property runs past the end of the stream", placeOf(number, property.type));
            return;
        }
        if (size == 0)
            complaints.add(where, "an empty property ends the reading of the stream", placeOf(number, property.type));
        property.payload = stream.part(offset + kHeadSize, size);
        _index.try_emplace(property.type, _properties.size());
        _properties.push_back(property);
        offset += kHeadSize + size + size % 2;
    }
}

const Property* PropsFrame::find(std::uint32_t type) const {
    const auto found = _index.find(type);
    return found == _index.end() ? nullptr : &_properties[found->second];
}

ByteView PropsFrame::payload(std::uint32_t type) const {
    const Property* property = find(type);
    return property == nullptr ? ByteView() : property->payload;
}

} // namespace brackwater::inspect
