#include "RowStorage.h"

#include "PropsFrame.h"

#include <fmt/format.h>

#include <algorithm>
#include <bit>
#include <stdexcept>

namespace brackwater::layout {

namespace {

constexpr std::uint32_t kMetaMagic = 0xFADFADBA;
constexpr std::size_t kRecordHead = 8; ///< count of elements and offset of the row, before a record's bits
constexpr std::size_t kHeaderRowSize = 16;

const Field& fieldNamed(const FieldTable& table, std::string_view name) {
    const auto found = std::ranges::find(table.fields, name, &Field::name);
    if (found == table.fields.end())
        throw std::logic_error(fmt::format("no field '{}' in the table", name));
    return *found;
}

// Header of FixedMeta and Fixed2Meta.
Bytes metaHeader(std::size_t count, std::size_t dataSize) {
    return ByteBuilder()
        .u32(kMetaMagic)
        .u32(4)
        .u32(static_cast<std::uint32_t>(count))
        .u32(static_cast<std::uint32_t>(dataSize))
        .take();
}

// Header rows contain no values: a number, and the mark 4 in the records.
Bytes headerRow(std::uint16_t number) {
    return ByteBuilder().u16(number).u16(0xFFFF).zeroes(kHeaderRowSize - 4).take();
}

Bytes headerMeta(std::uint32_t offset, std::size_t recordSize) {
    ByteBuilder record;
    record.u32(4).u32(offset);
    if (recordSize >= kRecordHead + 4)
        record.u32(4);
    else
        record.u16(0x20); // meaning unknown, in the short records of calendars
    return record.zeroes(recordSize - record.size()).take();
}

void append(Bytes& to, const Bytes& bytes) { to.insert(to.end(), bytes.begin(), bytes.end()); }

struct RowStreams {
    Bytes fixedData, fixedMeta, fixed2Data, fixed2Meta;
};

RowStreams rowStreams(const RowStorage& storage) {
    const FieldTable& table = storage.table;
    RowStreams out;
    Bytes records, secondRecords;
    for (std::uint16_t i = 0; i < storage.headerRows; ++i) {
        append(records, headerMeta(static_cast<std::uint32_t>(out.fixedData.size()), table.firstMetaSize));
        append(secondRecords, ByteBuilder()
                                  .u32(0)
                                  .u32(static_cast<std::uint32_t>(out.fixed2Data.size()))
                                  .zeroes(table.secondMetaSize - kRecordHead)
                                  .take());
        append(out.fixedData, headerRow(i));
        out.fixed2Data.resize(out.fixed2Data.size() + table.secondSize);
    }
    for (const Row& row : storage.rows) {
        append(records, row.firstMeta(static_cast<std::uint32_t>(out.fixedData.size())));
        append(secondRecords, row.secondMeta(static_cast<std::uint32_t>(out.fixed2Data.size())));
        append(out.fixedData, row.firstBlock());
        append(out.fixed2Data, row.secondBlock());
    }
    const std::size_t count = storage.headerRows + storage.rows.size();
    out.fixedMeta = metaHeader(count, out.fixedData.size());
    append(out.fixedMeta, records);
    out.fixed2Meta = metaHeader(count, out.fixed2Data.size());
    append(out.fixed2Meta, secondRecords);
    return out;
}

struct VariableStreams {
    Bytes data, meta;
};

// Elements of Var2Data: size, payload. The owner of a row's elements is its id, the row's first field.
VariableStreams variableStreams(const RowStorage& storage) {
    ByteBuilder data, records;
    std::uint32_t count = 0;
    for (const Row& row : storage.rows)
        for (const auto& [type, payload] : row.elements()) {
            records.bytes(std::span(row.firstBlock()).first(4)).u32(static_cast<std::uint32_t>(data.size()));
            records.u16(type).u16(static_cast<std::uint16_t>(storage.table.family >> 16));
            data.u32(static_cast<std::uint32_t>(payload.size())).bytes(payload);
            ++count;
        }
    ByteBuilder meta;
    meta.u32(kMetaMagic).u32(0).u32(count).u32(0).u32(0).u32(static_cast<std::uint32_t>(data.size()));
    meta.bytes(records.take());
    return {data.take(), meta.take()};
}

// No names: the size twice, the count of names.
Bytes emptyAliases() {
    ByteBuilder aliases;
    for (int i = 0; i < 4; ++i)
        aliases.u32(8).u32(8).u32(0);
    return aliases.take();
}

constexpr std::uint32_t kAliasesType = 0x04400001;
constexpr std::uint32_t kTaskPropertyType = 0x04400000; ///< meaning unknown

} // namespace

Row::Row(const FieldTable& table)
    : _table(table), _first(table.firstSize), _second(table.secondSize), _firstBits(table.firstMetaSize - kRecordHead),
      _secondBits(table.secondMetaSize - kRecordHead) {
    for (const Field& field : table.fields) {
        if (field.place != FieldPlace::FirstBlock && field.place != FieldPlace::SecondBlock)
            continue;
        setBit(field.row);
        if (field.kind == FieldKind::Date)
            put32(blockOf(field), field.position, 0xFFFFFFFF);
    }
}

Bytes& Row::blockOf(const Field& field) {
    if (field.place == FieldPlace::FirstBlock)
        return _first;
    if (field.place == FieldPlace::SecondBlock)
        return _second;
    throw std::logic_error("a field without a place in the fixed rows");
}

void Row::setBit(std::uint16_t mapRow) {
    const bool inFirst = mapRow < _table.firstRows;
    const unsigned bit = inFirst ? mapRow : mapRow - static_cast<unsigned>(_table.firstRows);
    Bytes& bits = inFirst ? _firstBits : _secondBits;
    bits.at(bit / 8) = static_cast<std::uint8_t>(bits.at(bit / 8) | (1U << (bit % 8)));
}

Row& Row::number(std::string_view name, std::uint32_t value) {
    const Field& field = fieldNamed(_table, name);
    if (sizeOf(field.kind) == 2)
        put16(blockOf(field), field.position, static_cast<std::uint16_t>(value));
    else if (sizeOf(field.kind) == 4)
        put32(blockOf(field), field.position, value);
    else
        throw std::logic_error("not a field for whole numbers");
    return *this;
}

Row& Row::real(std::string_view name, double value) {
    const Field& field = fieldNamed(_table, name);
    if (sizeOf(field.kind) != sizeof value)
        throw std::logic_error("not a field for a double");
    const auto bits = std::bit_cast<std::uint64_t>(value);
    put32(blockOf(field), field.position, static_cast<std::uint32_t>(bits & 0xFFFFFFFF));
    put32(blockOf(field), field.position + 4U, static_cast<std::uint32_t>(bits >> 32));
    return *this;
}

Row& Row::guid(std::string_view name, const GuidBytes& value) {
    const Field& field = fieldNamed(_table, name);
    if (field.kind != FieldKind::Guid)
        throw std::logic_error("not a field for a GUID");
    std::ranges::copy(value, blockOf(field).begin() + field.position);
    return *this;
}

Row& Row::flag(std::string_view name) {
    setBit(fieldNamed(_table, name).row);
    return *this;
}

Row& Row::element(std::string_view name, Bytes payload) {
    const Field& field = fieldNamed(_table, name);
    setBit(field.row);
    _elements[field.id] = std::move(payload);
    return *this;
}

Bytes Row::firstMeta(std::uint32_t offset) const {
    ByteBuilder record;
    record.u16(0).u16(static_cast<std::uint16_t>(_elements.size())).u32(offset).bytes(_firstBits);
    return record.take();
}

Bytes Row::secondMeta(std::uint32_t offset) const { return ByteBuilder().u32(0).u32(offset).bytes(_secondBits).take(); }

Entry RowStorage::entry(Bytes props) const {
    RowStreams fixed = rowStreams(*this);
    VariableStreams variable = variableStreams(*this);
    Entry storage = Entry::storage(name, {});
    if (hasVar2Data)
        storage.children.push_back(Entry::stream("Var2Data", std::move(variable.data)));
    storage.children.push_back(Entry::stream("VarMeta", std::move(variable.meta)));
    storage.children.push_back(Entry::stream("FixedData", std::move(fixed.fixedData)));
    storage.children.push_back(Entry::stream("FixedMeta", std::move(fixed.fixedMeta)));
    storage.children.push_back(Entry::stream("Fixed2Data", std::move(fixed.fixed2Data)));
    storage.children.push_back(Entry::stream("Fixed2Meta", std::move(fixed.fixed2Meta)));
    storage.children.push_back(Entry::stream("Props", std::move(props)));
    return storage;
}

std::uint32_t RowStorage::rowCount() const { return static_cast<std::uint32_t>(headerRows + rows.size()); }

std::uint32_t RowStorage::var2DataSize() const {
    return static_cast<std::uint32_t>(variableStreams(*this).data.size());
}

Bytes storageProps() { return PropsFrame(kStoragePropsMagic).open(kAliasesType, emptyAliases()).take(); }

Bytes taskStorageProps() {
    return PropsFrame(kStoragePropsMagic)
        .open(kTaskPropertyType, ByteBuilder().u16(0).take(), 2)
        .open(kAliasesType, emptyAliases())
        .take();
}

} // namespace brackwater::layout
