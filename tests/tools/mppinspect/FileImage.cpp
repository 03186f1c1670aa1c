#include "FileImage.h"

namespace brackwater::test {

namespace {

void append(Bytes& to, const Bytes& bytes) { to.insert(to.end(), bytes.begin(), bytes.end()); }

Bytes recordImage(std::size_t size, unsigned marks, std::size_t offset, const std::vector<std::size_t>& bits) {
    ByteImage record(size);
    record.word(0, marks).integer(4, offset);
    Bytes bytes = record.bytes();
    for (const std::size_t bit : bits)
        bytes.at(8 + bit / 8) |= static_cast<std::uint8_t>(1U << (bit % 8));
    return bytes;
}

Bytes metaImage(std::uint32_t rows, const Bytes& data, const Bytes& records) {
    Bytes bytes = ByteImage().integer(0, 0xFADFADBA).integer(4, 4).integer(8, rows).integer(12, data.size()).bytes();
    append(bytes, records);
    return bytes;
}

} // namespace

MapImage& MapImage::row(unsigned offset, unsigned field, unsigned category) {
    append(_bytes, ByteImage(28).word(4, offset).integer(12, 0x0B400000U | field).word(20, category).bytes());
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
        row(ByteImage(16).word(0, i).word(2, 0xFFFF), ByteImage(secondSize), {}, 4);
    return *this;
}

RowsImage& RowsImage::element(std::uint32_t owner, unsigned type, const Bytes& payload) {
    append(varRecords, ByteImage(12).integer(0, owner).integer(4, var2Data.size()).word(8, type).bytes());
    append(var2Data, ByteImage().integer(0, payload.size()).bytes());
    append(var2Data, payload);
    ++elements;
    return *this;
}

CompoundTree RowsImage::streams() const {
    Bytes varMeta = ByteImage(24).integer(0, 0xFADFADBA).integer(8, elements).integer(20, var2Data.size()).bytes();
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
        append(body, ByteImage(12).integer(0, payload.size()).integer(4, type).bytes());
        append(body, payload);
        if (payload.size() % 2 != 0)
            body.push_back(0xFF);
    }
    const auto size = static_cast<std::uint32_t>(16 + body.size() - 4);
    Bytes bytes =
        ByteImage(16).integer(0, size).integer(4, size).integer(8, 0x11528).word(12, properties.size()).bytes();
    append(bytes, body);
    return bytes;
}

FileImage::FileImage()
    : storages{{"TBkndTask", {47, 86}},
               {"TBkndRsc", {37, 49}},
               {"TBkndAssn", {34, 53}},
               {"TBkndCal", {10, 9}},
               {"TBkndCons", {10, 9}}} {
    properties = {{0x0240001D, ByteImage().integer(0, 480).bytes()},
                  {0x0240001E, ByteImage().integer(0, 2400).bytes()}};
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
