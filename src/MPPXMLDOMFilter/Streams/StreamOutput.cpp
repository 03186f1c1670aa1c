#include "MPPXMLDOMFilter/Streams/StreamOutput.h"

#include "MPPXMLDOMFilter/Container/MPPWriter.h"
#include "Platform/Values/Exception.h"

#include <fmt/format.h>

#include <utility>

namespace brackwater {

namespace {

constexpr std::size_t kPieceSize = std::size_t{256} * 1024;

} // namespace

void failWriteToStream(const std::string& streamName) {
    throw Exception(kWriteToStreamException, fmt::format("Attempt to write {} failed", streamName));
}

StreamOutput::StreamOutput(MPPFormatWriter& storage, std::string name, MPPData& data)
    : _name(std::move(name)), _data(data), _stream(storage.createChildWithName(_name, false)) {
    if (!_stream)
        failWriteToStream(_name);
}

StreamOutput::~StreamOutput() {
    if (!_finished)
        _stream->writeBytes(_data.data().first(_completeSize));
}

void StreamOutput::flush() {
    _completeSize = _data.dataSize();
    if (_completeSize < kPieceSize)
        return;
    _allWritten &= MPPWriter::flushData(_data, *_stream);
    _completeSize = 0;
}

void StreamOutput::finish() {
    _finished = true;
    _allWritten &= MPPWriter::flushData(_data, *_stream);
    _allWritten &= _stream->close();
    if (!_allWritten)
        failWriteToStream(_name);
}

} // namespace brackwater
