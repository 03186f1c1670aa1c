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

void MPPStreamWriter::writeEntry(MPPData& data) {
    if (!flushData(data, writer()))
        failWriteToStream(writer().getName());
}

} // namespace brackwater
