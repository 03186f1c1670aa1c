#pragma once

#include "MPPXMLDOMFilter/Buffers/MPPData.h"
#include "MPPXMLDOMFilter/Container/MPPFormatWriter.h"

#include <memory>
#include <string>

namespace brackwater {

/// Raises WriteToStreamException, "Attempt to write NAME failed".
[[noreturn]] void failWriteToStream(const std::string& streamName);

/// One stream of a storage while it is written. Only one may be open at a time. A failed flush does not stop the
/// stream: it is remembered and raised at the stream's end.
class StreamOutput {
public:
    /// Creates the stream; raises WriteToStreamException when the storage gives no child.
    StreamOutput(MPPFormatWriter& storage, std::string name);

    /// Writes out and clears what the buffer holds.
    void flush(MPPData& data);
    /// The last flush, which also closes the stream; raises WriteToStreamException when any step of the stream failed.
    void finish(MPPData& data);

private:
    std::string _name;
    std::unique_ptr<MPPFormatWriter> _stream;
    bool _allWritten = true;
};

} // namespace brackwater
