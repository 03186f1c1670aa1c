#pragma once

#include "FieldMap.h"
#include "RowSet.h"
#include "Values.h"

#include <map>

namespace brackwater::inspect {

/// A storage of rows with all that reading its fields needs.
struct RowTable {
    std::string where;
    FieldMap map;
    VarData var;
    std::vector<RawRow> rows;
};

/// Reads the fields of one row where the file's own map says that they stand. A field that the map does not name, or
/// whose bytes the row does not have, is absent.
class RowReader {
public:
    /// Fields in Var2Data are those of the given owner.
    RowReader(const RowTable& table, const RawRow& row, std::uint32_t owner)
        : _table(table), _row(row), _elements(table.var.elementsOf(owner)) {}
    /// The fixed fields alone, before the row's own id is known.
    RowReader(const RowTable& table, const RawRow& row) : _table(table), _row(row) {}

    [[nodiscard]] std::optional<std::uint16_t> u16(std::uint16_t field) const { return bytes(field).u16(0); }
    [[nodiscard]] std::optional<std::uint32_t> u32(std::uint16_t field) const { return bytes(field).u32(0); }
    [[nodiscard]] std::optional<double> f64(std::uint16_t field) const { return bytes(field).f64(0); }
    [[nodiscard]] std::optional<Guid> guid(std::uint16_t field) const { return bytes(field).guid(0); }
    [[nodiscard]] std::optional<Date> date(std::uint16_t field) const;
    [[nodiscard]] std::optional<Duration> duration(std::uint16_t field, std::uint16_t unitsField) const;
    [[nodiscard]] std::string text(std::uint16_t field) const { return bytes(field).text16(); }
    [[nodiscard]] std::string note(std::uint16_t field) const { return textOfRtf(bytes(field)); }
    [[nodiscard]] bool flag(std::uint16_t field) const;
    /// From the field's first byte to the end of its block or element.
    [[nodiscard]] ByteView bytes(std::uint16_t field) const;

private:
    const RowTable& _table;
    const RawRow& _row;
    VarData::Owned _elements;
};

/// What distinguishes a kind of row.
struct RowKind {
    const char* storage;
    std::uint32_t mapType;
    RecordSizes records;
    std::uint32_t bookkeeping; ///< number of the kind in the project's properties
};

/// Names the fields of a kind of row that this program reads, for complaints about maps.
using FieldNames = std::map<std::uint16_t, std::string_view>;

/// Complains of fields that the map does not name, and of flags that readers look for at another place than it tells.
void checkMap(const RowTable& table, const FieldNames& fields, const std::map<std::uint16_t, std::size_t>& flagBits,
              Complaints& complaints);

} // namespace brackwater::inspect
