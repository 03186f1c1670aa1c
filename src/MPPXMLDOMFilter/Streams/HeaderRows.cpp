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

} // namespace brackwater
