#pragma once

#include "Platform/Files/FileURL.h"
#include "Platform/Files/NumberedPath.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>

struct _GsfOutfile; // NOLINT: libgsf's own name; the library is included by this folder's sources only
struct _GsfOutput;  // NOLINT

namespace brackwater {

/// One open node of the output: the root of the compound file, a storage or a stream. The library allows only one open
/// stream per output. Virtual, so that tests can substitute a sink of their own.
class MPPFormatWriter {
public:
    /// An unopened writer of a file. It never replaces an existing file: it then uses the next free name and reports it
    /// in the destination, which must outlive the writer.
    explicit MPPFormatWriter(NumberedPath& destination);
    explicit MPPFormatWriter(const FileURL& url);
    /// A writer of a given node; takes a shared reference to it.
    explicit MPPFormatWriter(_GsfOutput* node);
    /// Closes the node.
    virtual ~MPPFormatWriter();
    MPPFormatWriter(const MPPFormatWriter&) = delete;
    MPPFormatWriter& operator=(const MPPFormatWriter&) = delete;

    /// Creates the file; true if already open.
    virtual bool open();
    /// Nothing if the child cannot be created.
    [[nodiscard]] virtual std::unique_ptr<MPPFormatWriter> createChildWithName(const std::string& name, bool isDir);
    /// Writing no bytes returns true.
    virtual bool writeBytes(std::span<const std::uint8_t> bytes);
    [[nodiscard]] virtual std::string getName() const;
    /// Closes the node; on the root this finishes the file and moves it to its destination. Idempotent: a second call
    /// repeats the first result. A failed close is a failed export: a full disk shows only here.
    virtual bool close();
    /// The library's message for the last failure; empty without one.
    [[nodiscard]] virtual std::string failureText() const;

protected:
    /// For sinks that are not files.
    MPPFormatWriter();

private:
    struct Node; ///< the library's objects
    std::unique_ptr<Node> _node;
};

} // namespace brackwater
