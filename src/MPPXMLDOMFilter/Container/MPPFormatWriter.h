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

/// One open node of the output: the root of the compound file, a storage or a stream. Only one stream of the output may
/// be open at a time: the library requires it. Virtual, so that tests can put a sink of their own in a writer's place.
class MPPFormatWriter {
public:
    /// An unopened writer of a file. Nothing that stands at the destination is ever replaced: the file then goes to the
    /// next name that is free, and the destination, which must outlive the writer, tells it.
    explicit MPPFormatWriter(NumberedPath& destination);
    explicit MPPFormatWriter(const FileURL& url);
    /// A writer of a given node, taking a shared reference of it.
    explicit MPPFormatWriter(_GsfOutput* node);
    /// Closes the node.
    virtual ~MPPFormatWriter();
    MPPFormatWriter(const MPPFormatWriter&) = delete;
    MPPFormatWriter& operator=(const MPPFormatWriter&) = delete;

    /// Creates the file; true at once when already open.
    virtual bool open();
    /// Nothing when the child cannot be created.
    [[nodiscard]] virtual std::unique_ptr<MPPFormatWriter> createChildWithName(const std::string& name, bool isDir);
    /// A write of no bytes answers true.
    virtual bool writeBytes(std::span<const std::uint8_t> bytes);
    [[nodiscard]] virtual std::string getName() const;
    /// Closes the node; on the root this finishes the file and moves it to its destination. Idempotent: a second call
    /// repeats the first answer. A failed close is a failed export: a full disk shows here only.
    virtual bool close();
    /// The library's words for the last failure; empty without one.
    [[nodiscard]] virtual std::string failureText() const;

protected:
    /// For sinks that are not files.
    MPPFormatWriter();

private:
    struct Node; ///< the library's objects
    std::unique_ptr<Node> _node;
};

} // namespace brackwater
