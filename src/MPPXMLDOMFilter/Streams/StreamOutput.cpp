#include "MPPXMLDOMFilter/Streams/StreamOutput.h"

#include "MPPXMLDOMFilter/Container/MPPWriter.h"
#include "Platform/Exception.h"

#include <fmt/format.h>

#include <utility>

namespace brackwater {

void failWriteToStream(const std::string& streamName) {
    throw Exception(kWriteToStreamException, fmt::format("Attempt to write {} failed", streamName));
}

StreamOutput::StreamOutput(MPPFormatWriter& storage, std::string name)
    : _name(std::move(name)), _stream(storage.createChildWithName(_name, false)) {
    if (!_stream)
        failWriteToStream(_name);
}

void StreamOutput::flush(MPPData& data) {
    if (!MPPWriter::flushData(data, *_stream))
        _allWritten = false;
}

void StreamOutput::finish(MPPData& data) {
    flush(data);
    if (!_stream->close())
        _allWritten = false;
    if (!_allWritten)
        failWriteToStream(_name);
}

} // namespace brackwater
