#pragma once

#include "MPPXMLDOMFilter/Buffers/MPPFixedData.h"
#include "MPPXMLDOMFilter/Buffers/MPPFixedMeta.h"

#include <cstddef>
#include <cstdint>

namespace brackwater {

/// Rows of header elements in front of a storage's own rows.
inline constexpr std::size_t kHeaderRows = 3;
inline constexpr std::size_t kCalendarHeaderRows = 4;

/// Header rows of "FixedData", 16 bytes each.
void writeFixedDataHeaderRows(MPPFixedData& data, std::size_t rows);
/// Header rows of "Fixed2Data": zeros.
void writeZeroHeaderRows(MPPFixedData& data, std::size_t rows, std::size_t rowSize);
/// Records of header rows: the start value, the row's offset, the number `value`, then zeros up to `recordSize`.
void writeMetaHeaderRows(MPPFixedMeta& meta, std::size_t rows, std::size_t recordSize, std::uint32_t start,
                         std::uint8_t value);

} // namespace brackwater
