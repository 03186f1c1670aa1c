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

/// Records of header rows in "FixedMeta": one bit is set, which says that no record of the project stands there.
template <typename Record>
void writeHeaderRecords(MPPFixedMeta& meta, std::size_t rows, std::size_t headerBit) {
    constexpr std::uint32_t kStartValue = 4;
    Record record;
    record.bit(headerBit);
    for (std::size_t i = 0; i < rows; ++i)
        record.end(meta, kStartValue);
}
/// Records of header rows in "Fixed2Meta": none of the fields.
template <typename Record>
void writeEmptyHeaderRecords(MPPFixedMeta& meta, std::size_t rows) {
    for (std::size_t i = 0; i < rows; ++i)
        Record().end(meta, 0);
}

} // namespace brackwater
