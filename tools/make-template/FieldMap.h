#pragma once

#include "ByteBuilder.h"
#include "FieldTable.h"

namespace brackwater::layout {

/// The field map of a kind of row: tells readers the location of each field. A row of the map is 28 bytes; rows without
/// a written field are kept empty, since the row number is also the field's bit in the meta records.
[[nodiscard]] Bytes fieldMap(const FieldTable& table);
/// Only the rows of the first block, as in earlier versions of the format.
[[nodiscard]] Bytes oldFieldMap(const FieldTable& table);

} // namespace brackwater::layout
