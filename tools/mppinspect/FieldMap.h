#pragma once

#include "ByteView.h"
#include "Complaints.h"

namespace brackwater::inspect {

/// Where a file keeps a field, as its own map tells.
struct FieldPlace {
    enum class Where { FirstBlock, SecondBlock, Var2Data, Flag };
    Where where = Where::Var2Data;
    std::uint16_t id = 0;       ///< also the type in Var2Data
    std::uint16_t offset = 0;   ///< of a fixed field in its block
    std::uint16_t category = 0; ///< what kind of value it is
    std::size_t row = 0;        ///< its row in the map
};

/// The field map of one kind of row. A field's row in the map is also its bit in the meta records.
class FieldMap {
public:
    FieldMap() = default;
    FieldMap(ByteView map, std::string_view where, Complaints& complaints);

    [[nodiscard]] bool empty() const noexcept { return _places.empty(); }
    [[nodiscard]] const std::vector<FieldPlace>& places() const noexcept { return _places; }
    /// Null when the map does not name the field.
    [[nodiscard]] const FieldPlace* find(std::uint16_t id) const;
    /// Bytes that a row of each block must have for all its fields.
    [[nodiscard]] std::size_t firstSize() const noexcept { return _firstSize; }
    [[nodiscard]] std::size_t secondSize() const noexcept { return _secondSize; }
    /// Map rows of the first block; the rows behind them have their bits in the second meta record.
    [[nodiscard]] std::size_t firstRows() const noexcept { return _firstRows; }

private:
    std::vector<FieldPlace> _places;
    std::vector<std::uint16_t> _index; ///< id to place + 1, up to the largest id
    std::size_t _firstSize = 0, _secondSize = 0, _firstRows = 0;
};

} // namespace brackwater::inspect
