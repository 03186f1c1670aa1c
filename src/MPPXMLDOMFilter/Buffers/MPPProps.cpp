#include "MPPXMLDOMFilter/Buffers/MPPProps.h"

namespace brackwater {

namespace {

// Offsets in the frame's header.
constexpr std::size_t kFirstSize = 0;
constexpr std::size_t kSecondSize = 4;
constexpr std::size_t kCount = 12;

// Offsets in an element.
constexpr std::size_t kPayloadSize = 0;
constexpr std::size_t kThirdWord = 8;
constexpr std::size_t kHead = 12;

} // namespace

MPPProps::MPPProps(std::uint32_t magicInt) : _magicInt(magicInt) {}

void MPPProps::open() {
    writeInteger(0);         //  0  size of all that follows, set by close
    writeInteger(0);         //  4  the same again, set by close
    writeInteger(_magicInt); //  8
    write2ByteInteger(0);    // 12  number of elements, set by close
    write2ByteInteger(0);    // 14
    _closed = false;
}

std::uint64_t MPPProps::startNewElementForType(std::uint32_t type, std::uint32_t headerEnding) {
    const std::uint64_t index = startNewElement();
    writeInteger(0);            // 0  payload size, set when the element is closed
    writeInteger(type);         // 4
    writeInteger(headerEnding); // 8
    return index;
}

void MPPProps::closeCurrentElement() {
    requireOpenElement();
    const auto payload = static_cast<std::uint32_t>((dataSize() - kHead - curElementOffset()) & 0xFFFFFFFF);
    writeIntegerAtOffset(payload, curElementOffset() + kPayloadSize);
    if (_writeSizeTwice)
        writeIntegerAtOffset(payload, curElementOffset() + kThirdWord);
    MPPOffsetMarkedData::closeCurrentElement();
}

void MPPProps::close() {
    // The size counts all but its own field.
    const auto size = static_cast<std::uint32_t>((cumulativeDataSize() - 4) & 0xFFFFFFFF);
    writeIntegerAtOffset(size, kFirstSize);
    writeIntegerAtOffset(size, kSecondSize);
    write2ByteIntegerAtOffset(static_cast<std::uint16_t>(elementsCount() & 0xFFFF), kCount);
    _closed = true;
}

void MPPProps::clearBuffer() {
    if (_closed)
        MPPOffsetMarkedData::clearBuffer();
}

} // namespace brackwater
