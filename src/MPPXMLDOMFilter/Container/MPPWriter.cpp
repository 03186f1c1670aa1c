#include "MPPXMLDOMFilter/Container/MPPWriter.h"

#include "Platform/Values/Exception.h"

#include <fmt/core.h>

#include <utility>

namespace brackwater {

namespace {

/// A sentence about the failure, with the library's message if there is one.
std::string sentence(const std::string& what, const MPPFormatWriter& writer) {
    const std::string text = writer.failureText();
    return text.empty() ? what : what + ": " + text;
}

} // namespace

MPPWriter::MPPWriter(std::shared_ptr<MPPFormatWriter> writer, std::shared_ptr<MPPFormatReader> reader)
    : _writer(std::move(writer)), _reader(std::move(reader)) {}

MPPWriter::~MPPWriter() = default;

bool MPPWriter::writeDataForProject(MPPProject* /*project*/) {
    return _reader->isDirectory() ? copyStreamsOfStorage() : writeStreamFromReader(*_reader, *_writer);
}

bool MPPWriter::finish() {
    if (_writer->close())
        return true;
    setFailureReason(sentence("the entry cannot be finished", *_writer));
    return false;
}

bool MPPWriter::copyStreamsOfStorage() {
    const std::int32_t count = _reader->numberOfChildren();
    for (std::int32_t index = 0; index < count; ++index) {
        const auto childReader = _reader->createReaderForChildAtIndex(index);
        if (!childReader) {
            setFailureReason(fmt::format("child {} cannot be read from the template", index));
            return false;
        }
        // Also for a storage: its copy then fails, and its name stays in the output as an empty stream.
        const auto childWriter = _writer->createChildWithName(childReader->getName(), false);
        if (!childWriter) {
            setFailureReason(fmt::format("the stream '{}' cannot be created", childReader->getName()));
            return false;
        }
        if (!writeStreamFromReader(*childReader, *childWriter))
            return false;
        if (!childWriter->close()) {
            setFailureReason(
                sentence(fmt::format("the stream '{}' cannot be finished", childReader->getName()), *childWriter));
            return false;
        }
    }
    return true;
}

bool MPPWriter::writeStreamFromReader(MPPFormatReader& reader, MPPFormatWriter& writer) {
    if (reader.isDirectory()) {
        setFailureReason(fmt::format("the storage '{}' lies too deep for the copier", reader.getName()));
        return false;
    }
    if (reader.getDataSize() == 0)
        return true;
    const auto bytes = reader.readAll();
    if (!bytes) {
        setFailureReason(fmt::format("the stream '{}' cannot be read from the template", reader.getName()));
        return false;
    }
    if (!writer.writeBytes(*bytes)) {
        setFailureReason(sentence(fmt::format("the stream '{}' cannot be written", reader.getName()), writer));
        return false;
    }
    return true;
}

void MPPWriter::copyChildFromTemplate(const std::string& name) {
    const auto childReader = _reader->createReaderForChildWithName(name);
    if (!childReader)
        throw Exception(kReadFromStreamException, fmt::format("Attempt to read {} stream failed", name));
    const auto childWriter = _writer->createChildWithName(name, false);
    if (!childWriter || !writeStreamFromReader(*childReader, *childWriter) || !childWriter->close())
        throw Exception(kWriteToStreamException, fmt::format("Attempt to write {} stream failed", name));
}

bool MPPWriter::flushData(MPPData& data, MPPFormatWriter& writer) {
    const bool written = writer.writeBytes(data.data());
    data.clearBuffer();
    return written;
}

void MPPWriter::setFailureReason(std::string reason) { _failureReason = std::move(reason); }

} // namespace brackwater
