#include "MPPXMLDOMFilter/Streams/MPPSingleEntryWriter.h"

#include "MPPXMLDOMFilter/Buffers/MPP12VarMeta.h"
#include "MPPXMLDOMFilter/Buffers/MPPVar2Data.h"
#include "MPPXMLDOMFilter/Streams/StreamOutput.h"
#include "Platform/Exception.h"

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

} // namespace brackwater
