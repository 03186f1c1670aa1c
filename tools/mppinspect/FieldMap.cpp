#include "FieldMap.h"

#include <fmt/format.h>

#include <algorithm>

namespace brackwater::inspect {

namespace {

constexpr std::size_t kRowSize = 28;
constexpr std::uint16_t kNotFixed = 0xFFFF;
constexpr std::uint16_t kSomeFlag = 0x0B, kFlag = 0x64;
constexpr std::uint16_t kNoField = 0xFFFF;

std::size_t sizeOf(std::uint16_t category, std::uint16_t statedSize) {
    switch (category) {
    case 0x02:
        return 2;
    case 0x03: // whole number
    case 0x13: // date
    case 0x1D: // block of bits
        return 4;
    case 0x05: // double
    case 0x65: // work, money
    case 0x66: // units
        return 8;
    case 0x48: // GUID
        return 16;
    default:
        return statedSize;
    }
}

} // namespace

FieldMap::FieldMap(ByteView map, std::string_view where, Complaints& complaints) {
    if (map.size() % kRowSize != 0)
        complaints.add(where, "the field map ends inside a row");
    const std::size_t rows = map.size() / kRowSize;
    if (rows > 0xFFFF) {
        complaints.add(where, "the field map has more rows than there are fields");
        return;
    }
    _firstRows = rows;
    int lastOffset = -1;
    bool inSecond = false;
    for (std::size_t row = 0; row < rows; ++row) {
        const ByteView bytes = map.part(row * kRowSize, kRowSize);
        FieldPlace place{.id = static_cast<std::uint16_t>(*bytes.u32(12) & 0xFFFF),
                         .offset = *bytes.u16(4),
                         .category = *bytes.u16(20),
                         .row = row};
        if (place.offset != kNotFixed) {
            if (!inSecond && place.offset < lastOffset) {
                inSecond = true;
                _firstRows = row;
            }
            lastOffset = place.offset;
            place.where = inSecond ? FieldPlace::Where::SecondBlock : FieldPlace::Where::FirstBlock;
            std::size_t& needed = inSecond ? _secondSize : _firstSize;
            needed = std::max(needed, place.offset + sizeOf(place.category, *bytes.u16(22)));
        } else if (place.category == kFlag || place.category == kSomeFlag) {
            place.where = FieldPlace::Where::Flag;
        }
        if (place.id == kNoField)
            continue;
        if (place.id >= _index.size())
            _index.resize(place.id + 1U);
        if (_index[place.id] != 0) {
            complaints.add(where, "the field map names a field twice", fmt::format("field {}", place.id));
            continue;
        }
        _places.push_back(place);
        _index[place.id] = static_cast<std::uint16_t>(_places.size());
    }
}

const FieldPlace* FieldMap::find(std::uint16_t id) const {
    if (id >= _index.size() || _index[id] == 0)
        return nullptr;
    return &_places[_index[id] - 1U];
}

} // namespace brackwater::inspect
