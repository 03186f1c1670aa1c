#pragma once

#include "Entry.h"
#include "FieldTable.h"

#include <map>

namespace brackwater::layout {

/// One row with its records and elements. Fields are set by their name in the table; unset fields are zero, unset dates
/// and meta record flags absent.
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
    /// The records of the row, with the offsets of its blocks.
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

/// A storage of rows: header rows, rows, and the storage's "Props". The flags say which parts the format omits for this
/// kind of storage.
struct RowStorage {
    std::string name;
    const FieldTable& table;
    std::uint16_t headerRows;
    std::vector<Row> rows;
    bool hasVar2Data = true;

    [[nodiscard]] Entry entry(Bytes props) const;
    /// Values for the project's properties.
    [[nodiscard]] std::uint32_t rowCount() const;
    [[nodiscard]] std::uint32_t var2DataSize() const;
};

/// "Props" of a storage without names of custom fields.
[[nodiscard]] Bytes storageProps();
/// The same, preceded by a property that only tasks have.
[[nodiscard]] Bytes taskStorageProps();

} // namespace brackwater::layout
