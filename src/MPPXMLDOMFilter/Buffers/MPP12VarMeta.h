#pragma once

#include "MPPXMLDOMFilter/Buffers/MPPVar2Data.h"

#include <memory>

namespace brackwater {

/// "VarMeta", the index of the elements of a finished MPPVar2Data: a 24-byte header and 12 bytes an element.
class MPP12VarMeta : public MPPData {
public:
    /// `descriptionEnding` ends every record of the stream; each stream has its own.
    MPP12VarMeta(std::shared_ptr<const MPPVar2Data> var2Data, std::uint16_t descriptionEnding);

    void writeMetaHeader();
    /// A record of the element found by type and id.
    void writeElementMetaWithType(std::uint64_t type, std::uint64_t id);
    /// A record of the next element in the order in which they were written.
    void writeNextElementMetaWithID(std::uint64_t id, std::uint64_t type);

private:
    void requireElementLeft() const;
    void writeRecord(std::uint64_t id, std::uint64_t offset, std::uint64_t type);

    std::shared_ptr<const MPPVar2Data> _var2Data;
    std::uint64_t _curElementIndex = 0;
    std::uint16_t _descriptionEnding;
};

} // namespace brackwater
