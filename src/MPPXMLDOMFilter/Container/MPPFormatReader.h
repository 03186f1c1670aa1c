#pragma once

#include "Platform/Files/FileURL.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

struct _GsfInfile; // NOLINT: libgsf's own name; the library is included by this folder's sources only
struct _GsfInput;  // NOLINT

namespace brackwater {

/// One open node of a template: the root of the compound file, a storage or a stream.
class MPPFormatReader {
public:
    /// An unopened reader of a file.
    explicit MPPFormatReader(FileURL url);
    /// A reader of a given node, taking a shared reference of it.
    explicit MPPFormatReader(_GsfInput* node);
    ~MPPFormatReader();
    MPPFormatReader(const MPPFormatReader&) = delete;
    MPPFormatReader& operator=(const MPPFormatReader&) = delete;

    /// True at once when already open. A gzip or bzip2 wrapped file opens too.
    bool open();
    /// Children of a storage, -1 for a stream, 0 with no node.
    [[nodiscard]] std::int32_t numberOfChildren() const;
    [[nodiscard]] bool isDirectory() const { return numberOfChildren() >= 0; }
    /// Nothing when the index is out of range or the child cannot be opened.
    [[nodiscard]] std::unique_ptr<MPPFormatReader> createReaderForChildAtIndex(std::int32_t index) const;
    [[nodiscard]] std::unique_ptr<MPPFormatReader> createReaderForChildWithName(const std::string& name) const;
    [[nodiscard]] std::string getName() const;
    /// Size of the stream in bytes; -1 with no node.
    [[nodiscard]] std::int64_t getDataSize() const;
    /// Reads the whole stream into a buffer of its size; a stream can be read once through one reader.
    bool getData(std::span<std::uint8_t> buffer);
    /// The same into a buffer of its own. Nothing when the stream cannot be read, or claims more bytes than the file
    /// has: a damaged file must not make the export ask for memory that no stream needs.
    [[nodiscard]] std::optional<std::vector<std::uint8_t>> readAll();

private:
    MPPFormatReader(_GsfInput* node, std::int64_t fileSize);
    [[nodiscard]] std::unique_ptr<MPPFormatReader> readerOfChild(_GsfInput* child) const;

    FileURL _mppFilePath;
    _GsfInput* _root = nullptr; ///< shared reference; null until opened
    std::int64_t _fileSize;     ///< bytes of the whole file, the most that a stream of it can have
};

} // namespace brackwater
