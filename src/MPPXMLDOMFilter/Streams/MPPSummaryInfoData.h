#pragma once

#include "MPPXMLDOMFilter/Buffers/MPPOffsetMarkedData.h"

#include <cstdint>

namespace brackwater {

/// A property set of one section: a header of 56 bytes, patched by `close`, then what the caller writes.
class MPPSummaryInfoData : public MPPOffsetMarkedData {
public:
    /// Write the header, with the format id of the summary and of the document summary.
    void open();
    void openDoc();
    /// Patches the section's size and its number of properties.
    void close(std::uint16_t propertiesCount);

private:
    void writeHeader(const std::uint16_t (&formatID)[8]);

    bool _closed = true;
};

} // namespace brackwater
