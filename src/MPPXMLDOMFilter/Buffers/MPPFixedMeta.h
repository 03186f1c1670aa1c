#pragma once

#include "MPPXMLDOMFilter/Buffers/MPPFixedData.h"

#include <memory>

namespace brackwater {

/// "FixedMeta" and "Fixed2Meta", the index of the rows of a finished MPPFixedData. After `writeNextElementStartWithInt`
/// the caller appends the rest of the record, whose length is the stream's own.
class MPPFixedMeta : public MPPData {
public:
    explicit MPPFixedMeta(std::shared_ptr<const MPPFixedData> fixedData);

    /// The 16-byte header.
    void writeMetaHeader();
    /// The 8 bytes that begin every record: the value, then the offset of the next row.
    void writeNextElementStartWithInt(std::uint32_t value);

private:
    std::shared_ptr<const MPPFixedData> _fixedData;
    std::uint64_t _curElementIndex = 0;
};

} // namespace brackwater
