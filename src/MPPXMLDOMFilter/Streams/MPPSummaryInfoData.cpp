#include "MPPXMLDOMFilter/Streams/MPPSummaryInfoData.h"

#include "Platform/Values/Exception.h"

namespace brackwater {

namespace {

constexpr std::uint32_t kSectionOffset = 48;
constexpr std::size_t kCountOffset = 52;

// F29F85E0-4FF9-1068-AB91-08002B27B3D9 and D5CDD502-2E9C-101B-9397-08002B2CF9AE in the byte order of property sets.
constexpr std::uint16_t kSummaryFormatID[8] = {0x85E0, 0xF29F, 0x4FF9, 0x1068, 0x91AB, 0x0008, 0x272B, 0xD9B3};
constexpr std::uint16_t kDocSummaryFormatID[8] = {0xD502, 0xD5CD, 0x2E9C, 0x101B, 0x9793, 0x0008, 0x2C2B, 0xAEF9};

} // namespace

void MPPSummaryInfoData::open() { writeHeader(kSummaryFormatID); }
void MPPSummaryInfoData::openDoc() { writeHeader(kDocSummaryFormatID); }

void MPPSummaryInfoData::writeHeader(const std::uint16_t (&formatID)[8]) {
    write2ByteInteger(0xFFFE); // byte order
    write2ByteInteger(0);      // version
    write2ByteInteger(0x0105); // system
    write2ByteInteger(2);
    writeZeroesBlockOfSize(16); // class id
    writeInteger(1);            // sections
    for (const std::uint16_t word : formatID)
        write2ByteInteger(word);
    writeInteger(kSectionOffset);
    writeInteger(0);      // section size, by `close`
    write2ByteInteger(0); // number of properties, by `close`
    write2ByteInteger(0);
    _closed = false;
}

void MPPSummaryInfoData::close(std::uint16_t propertiesCount) {
    assertThat(!_closed, "Attempt to close a property set that is not open.");
    writeIntegerAtOffset(static_cast<std::uint32_t>(dataSize() - kSectionOffset), kSectionOffset);
    write2ByteIntegerAtOffset(propertiesCount, kCountOffset);
    _closed = true;
}

} // namespace brackwater
