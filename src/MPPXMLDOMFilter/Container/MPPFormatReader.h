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
    /// A reader of a given node; takes a shared reference to it.
    explicit MPPFormatReader(_GsfInput* node);
    ~MPPFormatReader();
    MPPFormatReader(const MPPFormatReader&) = delete;
    MPPFormatReader& operator=(const MPPFormatReader&) = delete;

    /// True if already open. Also opens gzip and bzip2 files.
    bool open();
    /// The line that `open` begins with, also for whoever knows what is in the file.
    static void logOpening(const FileURL& file);
    /// Children of a storage, -1 for a stream, 0 with no node.
    [[nodiscard]] std::int32_t numberOfChildren() const;
    [[nodiscard]] bool isDirectory() const { return numberOfChildren() >= 0; }
    /// Nothing if the index is out of range or the child cannot be opened.
    [[nodiscard]] std::unique_ptr<MPPFormatReader> createReaderForChildAtIndex(std::int32_t index) const;
    [[nodiscard]] std::unique_ptr<MPPFormatReader> createReaderForChildWithName(const std::string& name) const;
    [[nodiscard]] std::string getName() const;
    /// Size of the stream in bytes; -1 with no node.
    [[nodiscard]] std::int64_t getDataSize() const;
    /// Reads the whole stream into a buffer of its size; a reader can read its stream only once.
    bool getData(std::span<std::uint8_t> buffer);
    /// Reads into a new buffer. Nothing if the stream cannot be read or claims more bytes than the file has: a damaged
    /// file must not make the export allocate memory that no stream needs.
    [[nodiscard]] std::optional<std::vector<std::uint8_t>> readAll();

private:
    MPPFormatReader(_GsfInput* node, std::int64_t fileSize);
    [[nodiscard]] std::unique_ptr<MPPFormatReader> readerOfChild(_GsfInput* child) const;

    FileURL _mppFilePath;
    _GsfInput* _root = nullptr; ///< shared reference; null until opened
    std::int64_t _fileSize;     ///< bytes of the whole file, the upper limit for its streams
};

} // namespace brackwater
