#include "MPPXMLDOMFilter/Buffers/MPPVar2Data.h"

#include "Platform/Values/Exception.h"

namespace brackwater {

namespace {

/// Bytes of the payload's size in front of each payload.
constexpr std::size_t kSizeField = 4;

constexpr std::uint64_t elementKey(std::uint64_t type, std::uint64_t id) noexcept { return (type << 32) + id; }

} // namespace

std::uint64_t MPPVar2Data::startNewElement() {
    const std::uint64_t index = MPPOffsetMarkedData::startNewElement();
    writeInteger(0); // payload size, set when the element is closed
    return index;
}

std::uint64_t MPPVar2Data::startNewElementWithType(std::uint64_t type, std::uint64_t id) {
    const std::uint64_t index = startNewElement();
    _elemTypeAndID2Index[elementKey(type, id)] = index;
    ++_elemID2OccurenceNumber[id];
    return index;
}

void MPPVar2Data::closeCurrentElement() {
    requireOpenElement();
    const std::size_t payload = dataSize() - kSizeField - curElementOffset();
    writeIntegerAtOffset(static_cast<std::uint32_t>(payload & 0xFFFFFFFF), curElementOffset());
    MPPOffsetMarkedData::closeCurrentElement();
}

std::uint64_t MPPVar2Data::offsetOfElementWithType(std::uint64_t type, std::uint64_t id) const {
    const auto found = _elemTypeAndID2Index.find(elementKey(type, id));
    if (found == _elemTypeAndID2Index.end())
        throw Exception(kRangeException, "No data in Var2Data for (type, id) pair specified");
    return offsetOfElementAtIndex(found->second);
}

std::uint64_t MPPVar2Data::numberOfElementsForID(std::uint64_t id) const {
    const auto found = _elemID2OccurenceNumber.find(id);
    return found == _elemID2OccurenceNumber.end() ? 0 : found->second;
}

} // namespace brackwater
