#include "MPPXMLDOMFilter/Container/MPPFormatReader.h"

#include "MPPXMLDOMFilter/Container/DirectoryBound.h"
#include "MPPXMLDOMFilter/Container/GObjectPointer.h"
#include "MPPXMLDOMFilter/Container/TemplateInput.h"
#include "Platform/Log/Log.h"

#include <gsf/gsf-infile-msole.h>

#include <limits>
#include <utility>

namespace brackwater {

namespace {

constexpr std::int64_t kUnknownFileSize = std::numeric_limits<std::int64_t>::max();

/// The node as a storage; null for a stream or no node.
GsfInfile* asInfile(GsfInput* node) { return GSF_IS_INFILE(node) ? GSF_INFILE(node) : nullptr; }

} // namespace

MPPFormatReader::MPPFormatReader(FileURL url) : _mppFilePath(std::move(url)), _fileSize(kUnknownFileSize) {}

MPPFormatReader::MPPFormatReader(GsfInput* node) : MPPFormatReader(node, kUnknownFileSize) {}

MPPFormatReader::MPPFormatReader(GsfInput* node, std::int64_t fileSize)
    : _root(shareGObject(node).release()), _fileSize(fileSize) {}

MPPFormatReader::~MPPFormatReader() {
    if (_root != nullptr)
        g_object_unref(_root);
}

bool MPPFormatReader::open() {
    if (_root != nullptr)
        return true;
    logOpening(_mppFilePath);
    const auto input = openTemplateInput(_mppFilePath.path());
    if (!input || !hasSensibleDirectory(input.get()))
        return false;
    _fileSize = gsf_input_size(input.get());
    GsfInfile* infile = gsf_infile_msole_new(input.get(), nullptr);
    if (infile == nullptr)
        return false;
    _root = GSF_INPUT(infile);
    return true;
}

void MPPFormatReader::logOpening(const FileURL& file) { logLine("opening a file at path {}", file.path()); }

std::int32_t MPPFormatReader::numberOfChildren() const {
    if (_root == nullptr)
        return 0;
    GsfInfile* infile = asInfile(_root);
    return infile != nullptr ? gsf_infile_num_children(infile) : -1;
}

std::unique_ptr<MPPFormatReader> MPPFormatReader::createReaderForChildAtIndex(std::int32_t index) const {
    if (index < 0 || index >= numberOfChildren())
        return nullptr;
    return readerOfChild(gsf_infile_child_by_index(asInfile(_root), index));
}

std::unique_ptr<MPPFormatReader> MPPFormatReader::createReaderForChildWithName(const std::string& name) const {
    if (numberOfChildren() <= 0)
        return nullptr;
    return readerOfChild(gsf_infile_child_by_name(asInfile(_root), name.c_str()));
}

std::unique_ptr<MPPFormatReader> MPPFormatReader::readerOfChild(GsfInput* child) const {
    if (child == nullptr)
        return nullptr;
    const GObjectPointer<GsfInput> owned(child);
    return std::unique_ptr<MPPFormatReader>(new MPPFormatReader(child, _fileSize));
}

std::string MPPFormatReader::getName() const {
    const char* name = _root != nullptr ? gsf_input_name(_root) : nullptr;
    return name != nullptr ? name : "";
}

std::int64_t MPPFormatReader::getDataSize() const { return _root != nullptr ? gsf_input_size(_root) : -1; }

bool MPPFormatReader::getData(std::span<std::uint8_t> buffer) {
    if (_root == nullptr || isDirectory() || std::cmp_not_equal(buffer.size(), getDataSize()))
        return false;
    return buffer.empty() || gsf_input_read(_root, buffer.size(), buffer.data()) != nullptr;
}

std::optional<std::vector<std::uint8_t>> MPPFormatReader::readAll() {
    const std::int64_t size = getDataSize();
    if (size < 0 || size > _fileSize || isDirectory())
        return std::nullopt;
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(size));
    if (!getData(bytes))
        return std::nullopt;
    return bytes;
}

} // namespace brackwater
