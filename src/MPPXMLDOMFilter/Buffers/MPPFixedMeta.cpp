#include "MPPXMLDOMFilter/Buffers/MPPFixedMeta.h"

#include "Platform/Values/Exception.h"

#include <utility>

namespace brackwater {

namespace {

constexpr std::uint32_t kMagic = 0xFADFADBA;

} // namespace

MPPFixedMeta::MPPFixedMeta(std::shared_ptr<const MPPFixedData> fixedData) : _fixedData(std::move(fixedData)) {}

void MPPFixedMeta::writeMetaHeader() {
    writeInteger(kMagic);                                                       //  0
    writeInteger(4);                                                            //  4  meaning unknown
    writeInteger(static_cast<std::uint32_t>(_fixedData->elementsCount()));      //  8
    writeInteger(static_cast<std::uint32_t>(_fixedData->cumulativeDataSize())); // 12
}

void MPPFixedMeta::writeNextElementStartWithInt(std::uint32_t value) {
    if (_curElementIndex >= _fixedData->elementsCount())
        throw Exception(kRangeException, "Attempt to write too many elements into FixedMeta");
    writeInteger(value);                                                                            // 0
    writeInteger(static_cast<std::uint32_t>(_fixedData->offsetOfElementAtIndex(_curElementIndex))); // 4
    ++_curElementIndex;
}

} // namespace brackwater
