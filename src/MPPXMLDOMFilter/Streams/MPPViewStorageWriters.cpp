#include "MPPXMLDOMFilter/Streams/MPPViewStorageWriters.h"

#include "MPPXMLDOMFilter/Buffers/MPP12VarMeta.h"
#include "MPPXMLDOMFilter/Buffers/MPPVar2Data.h"
#include "MPPXMLDOMFilter/Streams/StreamOutput.h"
#include "Platform/Values/Exception.h"

namespace brackwater {

void MPPSingleEntryWriter::writeSteps() {
    if (!project().keepsTemplateViews)
        writeMinimum();
    else if (!copyStreamsOfStorage())
        throw Exception(kWriteToStreamException, failureReason());
}

void MPPSingleEntryWriter::writeMinimum() {
    const auto writeStream = [this](const char* name, MPPData& data) { StreamOutput(writer(), name, data).finish(); };

    const auto var2Data = std::make_shared<MPPVar2Data>();
    writeStream("Var2Data", *var2Data);

    MPP12VarMeta varMeta(var2Data, descriptionEnding());
    varMeta.writeMetaHeader();
    writeStream("VarMeta", varMeta);

    const auto fixedData = std::make_shared<MPPFixedData>();
    fixedData->startNewElement();
    writeFixedElement(*fixedData);
    fixedData->closeCurrentElement();
    writeStream("FixedData", *fixedData);

    MPPFixedMeta fixedMeta(fixedData);
    fixedMeta.writeMetaHeader();
    writeFixedMetaRecord(fixedMeta);
    writeStream("FixedMeta", fixedMeta);
}

void MPP12CViewWriter::writeFixedElement(MPPFixedData& fixedData) const {
    fixedData.writeInteger(1);
    fixedData.writeString("&Gantt Chart", MPPEncoding::Unicode);
    fixedData.writeZeroesBlockOfSize(108);
}

void MPP12CViewWriter::writeFixedMetaRecord(MPPFixedMeta& fixedMeta) const {
    fixedMeta.writeNextElementStartWithInt(0x00020000);
    fixedMeta.write2ByteInteger(0x06FF);
}

void MPP12CTableWriter::writeFixedElement(MPPFixedData& fixedData) const {
    fixedData.writeInteger(1);
    fixedData.writeString("&Entry", MPPEncoding::Unicode);
    fixedData.writeZeroesBlockOfSize(212);
}

void MPP12CTableWriter::writeFixedMetaRecord(MPPFixedMeta& fixedMeta) const {
    fixedMeta.writeNextElementStartWithInt(0x00010000);
    fixedMeta.write2ByteInteger(0x00DF);
}

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
