#include "support/MemoryWriter.h"

#include <algorithm>
#include <utility>

namespace brackwater::test {

MemoryWriter::MemoryWriter(std::shared_ptr<MemoryOutput> output, std::string path, bool isStream)
    : _output(std::move(output)), _path(std::move(path)), _isStream(isStream) {
    if (!_isStream)
        return;
    _output->streams.try_emplace(_path);
    _output->mostOpenStreams = std::max(_output->mostOpenStreams, ++_output->openStreams);
}

MemoryWriter::~MemoryWriter() { markClosed(); }

std::unique_ptr<MPPFormatWriter> MemoryWriter::createChildWithName(const std::string& name, bool isDir) {
    const std::string path = _path.empty() ? name : _path + "/" + name;
    if (!_output->nextCallSucceeds(path))
        return nullptr;
    _output->created.push_back(path);
    return std::make_unique<MemoryWriter>(_output, path, !isDir);
}

bool MemoryWriter::writeBytes(std::span<const std::uint8_t> bytes) {
    if (!_output->nextCallSucceeds(_path))
        return false;
    Bytes& stream = _output->streams[_path];
    stream.insert(stream.end(), bytes.begin(), bytes.end());
    return true;
}

std::string MemoryWriter::getName() const {
    const std::size_t slash = _path.rfind('/');
    return slash == std::string::npos ? _path : _path.substr(slash + 1);
}

bool MemoryWriter::close() {
    if (_closed)
        return true;
    markClosed();
    return _output->nextCallSucceeds(_path);
}

void MemoryWriter::markClosed() {
    if (!_closed && _isStream)
        --_output->openStreams;
    _closed = true;
}

} // namespace brackwater::test
