#pragma once

#include "Entry.h"
#include "FieldTable.h"

#include <map>

namespace brackwater::layout {

/// One row with its records and elements, set field by field by the field's name in its table. Fields that are not set
/// are zero, dates and the flags of a meta record absent.
class Row {
public:
    explicit Row(const FieldTable& table);

    Row& number(std::string_view field, std::uint32_t value);
    Row& real(std::string_view field, double value);
    Row& guid(std::string_view field, const GuidBytes& value);
    Row& flag(std::string_view field);
    Row& element(std::string_view field, Bytes payload);

    [[nodiscard]] const Bytes& firstBlock() const noexcept { return _first; }
    [[nodiscard]] const Bytes& secondBlock() const noexcept { return _second; }
    [[nodiscard]] const std::map<std::uint16_t, Bytes>& elements() const noexcept { return _elements; }
    /// The records of the row, which name the offsets of its blocks.
    [[nodiscard]] Bytes firstMeta(std::uint32_t offset) const;
    [[nodiscard]] Bytes secondMeta(std::uint32_t offset) const;

private:
    Bytes& blockOf(const Field& field);
    void setBit(std::uint16_t mapRow);

    const FieldTable& _table;
    Bytes _first, _second;
    Bytes _firstBits, _secondBits;
    std::map<std::uint16_t, Bytes> _elements;
};

/// A storage of rows: the header rows that stand before them, the rows, and the "Props" of the storage. The parts that
/// the format leaves out of a kind of storage are told by the flags.
struct RowStorage {
    std::string name;
    const FieldTable& table;
    std::uint16_t headerRows;
    std::vector<Row> rows;
    bool hasVar2Data = true;

    [[nodiscard]] Entry entry(Bytes props) const;
    /// What the project's properties keep about it.
    [[nodiscard]] std::uint32_t rowCount() const;
    [[nodiscard]] std::uint32_t var2DataSize() const;
};

/// "Props" of a storage without names of custom fields.
[[nodiscard]] Bytes storageProps();
/// The same with the property that only tasks have in front.
[[nodiscard]] Bytes taskStorageProps();

} // namespace brackwater::layout
