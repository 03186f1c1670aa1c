#include "MPPXMLDOMFilter/Streams/HeaderRows.h"

#include "MPPXMLDOMFilter/Streams/RowBuilder.h"

namespace brackwater {

void writeFixedDataHeaderRows(MPPFixedData& data, std::size_t rows) {
    for (std::size_t i = 0; i < rows; ++i) {
        RowBuilder<16> row;
        row.at(0).lowWord(i);
        row.at(2).word(0xFFFF);
        row.at(4).zeroes(12);
        row.endElement(data);
    }
}

void writeZeroHeaderRows(MPPFixedData& data, std::size_t rows, std::size_t rowSize) {
    for (std::size_t i = 0; i < rows; ++i) {
        data.startNewElement();
        data.writeZeroesBlockOfSize(rowSize);
        data.closeCurrentElement();
    }
}

void writeMetaHeaderRows(MPPFixedMeta& meta, std::size_t rows, std::size_t recordSize, std::uint32_t start,
                         std::uint8_t value) {
    constexpr std::size_t kBytesBefore = 9; // start value, offset, `value`
    for (std::size_t i = 0; i < rows; ++i) {
        meta.writeNextElementStartWithInt(start);
        meta.write1ByteInteger(value);
        meta.writeZeroesBlockOfSize(recordSize - kBytesBefore);
    }
}

} // namespace brackwater
