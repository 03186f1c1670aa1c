#include "MPPXMLDOMFilter/Buffers/MPPOffsetMarkedData.h"

#include "Platform/Values/Exception.h"

namespace brackwater {

std::uint64_t MPPOffsetMarkedData::startNewElement() {
    if (_writingElement)
        throw Exception(kOffsetMarkedDataException,
                        "Attempt to create a new element while the current element is not closed");
    const std::uint64_t index = elementsCount();
    _elementOffsets.push_back(cumulativeDataSize());
    _curElementOffset = dataSize();
    _writingElement = true;
    return index;
}

void MPPOffsetMarkedData::closeCurrentElement() {
    requireOpenElement();
    _writingElement = false;
}

void MPPOffsetMarkedData::clearBuffer() {
    if (_writingElement)
        throw Exception(kOffsetMarkedDataException, "Attempt to clear buffer while element is not closed");
    MPPData::clearBuffer();
}

void MPPOffsetMarkedData::failIndex() { throw Exception(kRangeException, "Index out of bounds"); }

void MPPOffsetMarkedData::failClosedElement() {
    throw Exception(kOffsetMarkedDataException, "Attempt to close an already closed element");
}

} // namespace brackwater
