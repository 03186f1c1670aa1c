#pragma once

#include "MPPXMLDOMFilter/Buffers/MPPData.h"
#include "MPPXMLDOMFilter/Container/MPPFormatWriter.h"

#include <cstddef>
#include <memory>
#include <string>

namespace brackwater {

/// Raises WriteToStreamException, "Attempt to write NAME failed".
[[noreturn]] void failWriteToStream(const std::string& streamName);

/// One stream of a storage while it is written out of a buffer. Only one may be open at a time. A failed write does not
/// stop the stream: it is remembered and raised at the stream's end.
///
/// Elements are written out in pieces, since the library takes its time for each write; memory stays bounded by the
/// piece. When a failure cuts the stream short, the elements that were complete still reach the output.
class StreamOutput {
public:
    /// Creates the stream; raises WriteToStreamException when the storage gives no child. The buffer outlives this.
    StreamOutput(MPPFormatWriter& storage, std::string name, MPPData& data);
    /// Of a stream that a failure cut short: writes the complete elements.
    ~StreamOutput();
    StreamOutput(const StreamOutput&) = delete;
    StreamOutput& operator=(const StreamOutput&) = delete;

    /// What the buffer holds is complete and may leave it.
    void flush();
    /// Has `write` put each of the records into the buffer, which it may leave at once.
    template <typename Records, typename Write>
    void writeEach(const Records& records, const Write& write) {
        for (const auto& record : records) {
            write(*record);
            flush();
        }
    }
    /// Writes what is left and closes the stream; raises WriteToStreamException when any step of it failed.
    void finish();

private:
    std::string _name;
    MPPData& _data;
    std::unique_ptr<MPPFormatWriter> _stream;
    std::size_t _completeSize = 0; ///< of the bytes in the buffer
    bool _allWritten = true;
    bool _finished = false;
};

} // namespace brackwater
