#include "MPPXMLDOMFilter/Streams/MPP12CTableWriter.h"

namespace brackwater {

void MPP12CTableWriter::writeFixedElement(MPPFixedData& fixedData) const {
    fixedData.writeInteger(1);
    fixedData.writeString("&Entry", MPPEncoding::Unicode);
    fixedData.writeZeroesBlockOfSize(212);
}

void MPP12CTableWriter::writeFixedMetaRecord(MPPFixedMeta& fixedMeta) const {
    fixedMeta.writeNextElementStartWithInt(0x00010000);
    fixedMeta.write2ByteInteger(0x00DF);
}

} // namespace brackwater
