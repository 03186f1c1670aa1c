#include "MPPXMLDOMFilter/Buffers/MPP12VarMeta.h"

#include "Platform/Values/Exception.h"

#include <utility>

namespace brackwater {

namespace {

constexpr std::uint32_t kMagic = 0xFADFADBA;

} // namespace

MPP12VarMeta::MPP12VarMeta(std::shared_ptr<const MPPVar2Data> var2Data, std::uint16_t descriptionEnding)
    : _var2Data(std::move(var2Data)), _descriptionEnding(descriptionEnding) {}

void MPP12VarMeta::writeMetaHeader() {
    writeInteger(kMagic);                                                      //  0
    writeInteger(0);                                                           //  4  meaning unknown
    writeInteger(static_cast<std::uint32_t>(_var2Data->elementsCount()));      //  8
    writeInteger(0);                                                           // 12  meaning unknown
    writeInteger(0);                                                           // 16  meaning unknown
    writeInteger(static_cast<std::uint32_t>(_var2Data->cumulativeDataSize())); // 20
}

inline void MPP12VarMeta::requireElementLeft() const {
    if (_curElementIndex >= _var2Data->elementsCount())
        throw Exception(kRangeException, "Attempt to write too many elements into VarMeta");
}

void MPP12VarMeta::writeElementMetaWithType(std::uint64_t type, std::uint64_t id) {
    requireElementLeft();
    writeRecord(id, _var2Data->offsetOfElementWithType(type, id), type);
}

void MPP12VarMeta::writeNextElementMetaWithID(std::uint64_t id, std::uint64_t type) {
    requireElementLeft();
    writeRecord(id, _var2Data->offsetOfElementAtIndex(_curElementIndex), type);
}

void MPP12VarMeta::writeRecord(std::uint64_t id, std::uint64_t offset, std::uint64_t type) {
    const std::uint32_t typeAndEnding = static_cast<std::uint16_t>(type) | std::uint32_t{_descriptionEnding} << 16;
    writeInteger(static_cast<std::uint32_t>(id));     // 0
    writeInteger(static_cast<std::uint32_t>(offset)); // 4  of the element's size field
    writeInteger(typeAndEnding);                      // 8  2 bytes each
    ++_curElementIndex;
}

} // namespace brackwater
