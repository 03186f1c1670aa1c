#pragma once

#include "MPPXMLDOMFilter/Buffers/MPPData.h"
#include "MPPXMLDOMFilter/Container/MPPFormatReader.h"
#include "MPPXMLDOMFilter/Container/MPPFormatWriter.h"

#include <memory>
#include <string>
#include <string_view>

namespace brackwater {

struct MPPProject;

inline constexpr std::string_view kWriteToStreamException = "WriteToStreamException";
inline constexpr std::string_view kReadFromStreamException = "ReadFromStreamException";

/// Writes one entry of the output. This base class copies the entry's bytes from the template. Stream writers derive
/// from it.
class MPPWriter {
public:
    /// Both are shared with the walk and kept for the object's lifetime.
    MPPWriter(std::shared_ptr<MPPFormatWriter> writer, std::shared_ptr<MPPFormatReader> reader);
    virtual ~MPPWriter();
    MPPWriter(const MPPWriter&) = delete;
    MPPWriter& operator=(const MPPWriter&) = delete;

    /// Writes the entry; false on failure, with a `failureReason`. `project` may be null: the copier ignores it, stream
    /// writers return false.
    virtual bool writeDataForProject(MPPProject* project);
    /// Closes the entry's output node; false, with a `failureReason`, if the library could not finish it.
    bool finish();
    /// Why the entry could not be written, for the log: "NAME: REASON" of an exception, or a sentence. Empty on
    /// success.
    [[nodiscard]] const std::string& failureReason() const noexcept { return _failureReason; }

    /// Writes the bytes of a buffer and clears it, even if the write fails.
    static bool flushData(MPPData& data, MPPFormatWriter& writer);

protected:
    /// Copies one stream; false if the reader is a storage, true for an empty stream.
    bool writeStreamFromReader(MPPFormatReader& reader, MPPFormatWriter& writer);
    /// Copies all streams of this storage; false, with a `failureReason`, if one of them cannot be copied.
    bool copyStreamsOfStorage();
    /// Copies the named child stream of this entry; raises on failure.
    void copyChildFromTemplate(const std::string& name);

    [[nodiscard]] MPPFormatWriter& writer() const noexcept { return *_writer; }
    [[nodiscard]] MPPFormatReader& reader() const noexcept { return *_reader; }
    void setFailureReason(std::string reason);

private:
    std::shared_ptr<MPPFormatWriter> _writer;
    std::shared_ptr<MPPFormatReader> _reader;
    std::string _failureReason;
};

} // namespace brackwater
