#include "RowReader.h"

#include <fmt/format.h>

namespace brackwater::inspect {

ByteView RowReader::bytes(std::uint16_t field) const {
    const FieldPlace* place = _table.map.find(field);
    if (place == nullptr)
        return {};
    switch (place->where) {
    case FieldPlace::Where::FirstBlock:
        return _row.first.part(place->offset);
    case FieldPlace::Where::SecondBlock:
        return _row.second.part(place->offset);
    case FieldPlace::Where::Var2Data:
        return _table.var.find(_elements, field);
    case FieldPlace::Where::Flag:
        break;
    }
    return {};
}

std::optional<Date> RowReader::date(std::uint16_t field) const {
    const auto raw = u32(field);
    return raw && *raw != 0 ? dateFrom(*raw) : std::nullopt; // a zero stands in rows that were never filled in
}

std::optional<Duration> RowReader::duration(std::uint16_t field, std::uint16_t unitsField) const {
    const auto tenths = bytes(field).i32(0);
    if (!tenths)
        return std::nullopt;
    return Duration{*tenths, u16(unitsField).value_or(0)};
}

bool RowReader::flag(std::uint16_t field) const {
    const FieldPlace* place = _table.map.find(field);
    if (place == nullptr)
        return false;
    const std::size_t firstRows = _table.map.firstRows();
    return place->row < firstRows ? _row.firstBits.bit(place->row) : _row.secondBits.bit(place->row - firstRows);
}

void checkMap(const RowTable& table, const FieldNames& fields, const std::map<std::uint16_t, std::size_t>& flagBits,
              Complaints& complaints) {
    if (table.map.empty())
        return;
    for (const auto& [id, name] : fields)
        if (table.map.find(id) == nullptr)
            complaints.add(table.where, "the field map does not name a field", fmt::format("{} ({})", name, id));
    for (const auto& [id, bit] : flagBits) {
        const FieldPlace* place = table.map.find(id);
        if (place == nullptr)
            continue;
        const std::size_t told = place->row < table.map.firstRows() ? place->row : place->row - table.map.firstRows();
        if (told != bit)
            complaints.add(table.where, "the field map has a flag at another bit than readers look at",
                           fmt::format("field {} at {} instead of {}", id, told, bit));
    }
}

} // namespace brackwater::inspect
