#pragma once

#include "ByteBuilder.h"
#include "FieldTable.h"

namespace brackwater::layout {

/// The field map of a kind of row: tells readers where each field stands. A row of the map is 28 bytes; rows that no
/// written field stands for are kept as empty rows, since a field's bit in the meta records is the number of its row.
[[nodiscard]] Bytes fieldMap(const FieldTable& table);
/// The rows of the first block alone, as earlier versions of the format know them.
[[nodiscard]] Bytes oldFieldMap(const FieldTable& table);

} // namespace brackwater::layout
