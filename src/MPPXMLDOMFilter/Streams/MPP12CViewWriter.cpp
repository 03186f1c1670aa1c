#include "MPPXMLDOMFilter/Streams/MPP12CViewWriter.h"

namespace brackwater {

void MPP12CViewWriter::writeFixedElement(MPPFixedData& fixedData) const {
    fixedData.writeInteger(1);
    fixedData.writeString("&Gantt Chart", MPPEncoding::Unicode);
    fixedData.writeZeroesBlockOfSize(108);
}

void MPP12CViewWriter::writeFixedMetaRecord(MPPFixedMeta& fixedMeta) const {
    fixedMeta.writeNextElementStartWithInt(0x00020000);
    fixedMeta.write2ByteInteger(0x06FF);
}

} // namespace brackwater
