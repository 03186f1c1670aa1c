#include "MPPXMLDOMFilter/Streams/MPP12CEdlWriter.h"

namespace brackwater {

void MPP12CEdlWriter::writeFixedElement(MPPFixedData& fixedData) const {
    fixedData.writeInteger(1);
    fixedData.writeZeroesBlockOfSize(156);
}

void MPP12CEdlWriter::writeFixedMetaRecord(MPPFixedMeta& fixedMeta) const {
    fixedMeta.writeNextElementStartWithInt(0x00010000);
    fixedMeta.write2ByteInteger(0xBFF7);
    fixedMeta.write1ByteInteger(0);
}

} // namespace brackwater
