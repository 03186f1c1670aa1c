#include "MPPXMLDOMFilter/Streams/MPPStreamWriter.h"

#include "MPPXMLDOMFilter/Streams/StreamOutput.h"
#include "Platform/Values/Exception.h"

#include <exception>

namespace brackwater {

bool MPPStreamWriter::writeDataForProject(MPPProject* project) {
    if (!project) {
        setFailureReason("There is no project to write.");
        return false;
    }
    if (_project) {
        setFailureReason("The entry was written before.");
        return false;
    }
    _project = project;
    try {
        writeSteps();
        return true;
    } catch (const std::exception& failure) {
        setFailureReason(failure.what()); // of an Exception: "NAME: REASON"
        return false;
    }
}

void MPPStreamWriter::noteRows(MPPRowKind kind, const MPPFixedData& fixedData, const MPPVar2Data* var2Data) const {
    if (!project().bookkeeping)
        return;
    MPPBookkeeping::Rows& rows = project().bookkeeping->of(kind);
    rows.count = static_cast<std::uint32_t>(fixedData.elementsCount());
    rows.var2DataSize = var2Data ? static_cast<std::uint32_t>(var2Data->cumulativeDataSize()) : 0;
}

void MPPStreamWriter::writeEntry(MPPData& data) {
    if (!flushData(data, writer()))
        failWriteToStream(writer().getName());
}

} // namespace brackwater
