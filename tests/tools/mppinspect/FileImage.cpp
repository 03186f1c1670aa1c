#include "FileImage.h"

#include <bit>

namespace brackwater::test {

ByteImage& ByteImage::u8(std::size_t offset, unsigned value) {
    if (_bytes.size() <= offset)
        _bytes.resize(offset + 1);
    _bytes[offset] = static_cast<std::uint8_t>(value);
    return *this;
}

ByteImage& ByteImage::u16(std::size_t offset, unsigned value) {
    return u8(offset + 1, value >> 8).u8(offset, value & 0xFF);
}

ByteImage& ByteImage::u32(std::size_t offset, std::uint32_t value) {
    return u16(offset + 2, value >> 16).u16(offset, value & 0xFFFF);
}

ByteImage& ByteImage::f64(std::size_t offset, double value) {
    const auto bits = std::bit_cast<std::uint64_t>(value);
    return u32(offset + 4, static_cast<std::uint32_t>(bits >> 32)).u32(offset, static_cast<std::uint32_t>(bits));
}

ByteImage& ByteImage::text16(std::size_t offset, std::string_view text) {
    for (const char c : text) {
        u16(offset, static_cast<unsigned char>(c));
        offset += 2;
    }
    return u16(offset, 0);
}

Bytes text16(std::string_view text) { return ByteImage().text16(0, text).bytes(); }

namespace {

void append(Bytes& to, const Bytes& bytes) { to.insert(to.end(), bytes.begin(), bytes.end()); }

Bytes recordImage(std::size_t size, unsigned marks, std::size_t offset, const std::vector<std::size_t>& bits) {
    ByteImage record(size);
    record.u16(0, marks).u32(4, static_cast<std::uint32_t>(offset));
    Bytes bytes = record.bytes();
    for (const std::size_t bit : bits)
        bytes.at(8 + bit / 8) |= static_cast<std::uint8_t>(1U << (bit % 8));
    return bytes;
}

Bytes metaImage(std::uint32_t rows, const Bytes& data, const Bytes& records) {
    Bytes bytes =
        ByteImage().u32(0, 0xFADFADBA).u32(4, 4).u32(8, rows).u32(12, static_cast<std::uint32_t>(data.size())).bytes();
    append(bytes, records);
    return bytes;
}

} // namespace

MapImage& MapImage::row(unsigned offset, unsigned field, unsigned category) {
    append(_bytes, ByteImage(28).u16(4, offset).u32(12, 0x0B400000U | field).u16(20, category).bytes());
    return *this;
}

MapImage& MapImage::fill(std::size_t rows) {
    while (_bytes.size() < rows * 28)
        row(0xFFFF, 0xFFFF, 0);
    return *this;
}

RowsImage& RowsImage::row(const ByteImage& first, const ByteImage& second, std::vector<std::size_t> bits,
                          unsigned marks) {
    append(fixedMeta, recordImage(_firstRecord, marks, fixedData.size(), bits));
    append(fixed2Meta, recordImage(_secondRecord, 0, fixed2Data.size(), {}));
    append(fixedData, first.bytes());
    append(fixed2Data, second.bytes());
    ++rows;
    return *this;
}

RowsImage& RowsImage::secondBits(std::vector<std::size_t> bits) {
    for (const std::size_t bit : bits)
        fixed2Meta.at(fixed2Meta.size() - _secondRecord + 8 + bit / 8) |= static_cast<std::uint8_t>(1U << (bit % 8));
    return *this;
}

RowsImage& RowsImage::headers(unsigned count, std::size_t secondSize) {
    for (unsigned i = 0; i < count; ++i)
        row(ByteImage(16).u16(0, i).u16(2, 0xFFFF), ByteImage(secondSize), {}, 4);
    return *this;
}

RowsImage& RowsImage::element(std::uint32_t owner, unsigned type, const Bytes& payload) {
    append(varRecords,
           ByteImage(12).u32(0, owner).u32(4, static_cast<std::uint32_t>(var2Data.size())).u16(8, type).bytes());
    append(var2Data, ByteImage().u32(0, static_cast<std::uint32_t>(payload.size())).bytes());
    append(var2Data, payload);
    ++elements;
    return *this;
}

CompoundTree RowsImage::streams() const {
    Bytes varMeta =
        ByteImage(24).u32(0, 0xFADFADBA).u32(8, elements).u32(20, static_cast<std::uint32_t>(var2Data.size())).bytes();
    append(varMeta, varRecords);
    CompoundTree tree{stream("VarMeta", varMeta),
                      stream("Var2Data", var2Data),
                      stream("FixedMeta", metaImage(rows, fixedData, fixedMeta)),
                      stream("FixedData", fixedData),
                      stream("Fixed2Meta", metaImage(rows, fixed2Data, fixed2Meta)),
                      stream("Fixed2Data", fixed2Data)};
    if (!props.empty())
        tree.push_back(stream("Props", props));
    return tree;
}

Bytes propsImage(const std::vector<std::pair<std::uint32_t, Bytes>>& properties) {
    Bytes body;
    for (const auto& [type, payload] : properties) {
        append(body, ByteImage(12).u32(0, static_cast<std::uint32_t>(payload.size())).u32(4, type).bytes());
        append(body, payload);
        if (payload.size() % 2 != 0)
            body.push_back(0xFF);
    }
    const auto size = static_cast<std::uint32_t>(16 + body.size() - 4);
    Bytes bytes = ByteImage(16)
                      .u32(0, size)
                      .u32(4, size)
                      .u32(8, 0x11528)
                      .u16(12, static_cast<unsigned>(properties.size()))
                      .bytes();
    append(bytes, body);
    return bytes;
}

FileImage::FileImage()
    : storages{{"TBkndTask", {47, 86}},
               {"TBkndRsc", {37, 49}},
               {"TBkndAssn", {34, 53}},
               {"TBkndCal", {10, 9}},
               {"TBkndCons", {10, 9}}} {
    properties = {{0x0240001D, ByteImage().u32(0, 480).bytes()}, {0x0240001E, ByteImage().u32(0, 2400).bytes()}};
    // Maps that make sense of nothing, but are there.
    for (const std::uint32_t type : {0x00020014U, 0x00020015U, 0x00020017U})
        properties.emplace_back(type, MapImage().fixed(0, 0x7777, MapImage::kNumber32).bytes());
}

CompoundTree FileImage::tree() const {
    CompoundTree rows;
    for (const auto& [name, image] : storages)
        rows.push_back(storage(name, image.streams()));
    rows.push_back(stream("Props", propsImage(properties)));
    return {compObj2007(), stream("Props12", propsImage({})), storage(folder, rows), storage("   212", {})};
}

inspect::ProjectFile FileImage::decoded() const {
    return decode(inspect::CompoundFile::fromBytes(bytesOfCompoundFile(tree())));
}

} // namespace brackwater::test
