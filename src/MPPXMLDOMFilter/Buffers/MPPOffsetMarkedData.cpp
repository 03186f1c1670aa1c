#include "MPPXMLDOMFilter/Buffers/MPPOffsetMarkedData.h"

#include "Platform/Exception.h"

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

std::uint64_t MPPOffsetMarkedData::offsetOfElementAtIndex(std::uint64_t index) const {
    if (index >= elementsCount())
        throw Exception(kRangeException, "Index out of bounds");
    return _elementOffsets[index];
}

void MPPOffsetMarkedData::requireOpenElement() const {
    if (!_writingElement)
        throw Exception(kOffsetMarkedDataException, "Attempt to close an already closed element");
}

} // namespace brackwater
