#include "MPPXMLDOMFilter/Streams/MPP12SequentialPropsReader.h"

#include "MPPXMLDOMFilter/Container/MPPWriter.h"
#include "Platform/Values/Exception.h"

#include <fmt/format.h>

#include <utility>

namespace brackwater {

namespace {

constexpr std::size_t kFrameHeaderSize = 16;
constexpr std::size_t kMagicOffset = 8;
constexpr std::size_t kCountOffset = 12; // read as 32 bits
constexpr std::size_t kPropertyHeaderSize = 12;
constexpr std::uint32_t kSizeInThirdWordType = 0x3540000B; // its first word is not its size

std::uint32_t integerAt(std::span<const std::uint8_t> data, std::size_t offset) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < sizeof value; ++i)
        value |= static_cast<std::uint32_t>(data[offset + i]) << (8 * i);
    return value;
}

std::vector<std::uint8_t> wholeStream(MPPFormatReader& reader) {
    auto data = reader.readAll();
    if (!data)
        throw Exception(kReadFromStreamException, fmt::format("Attempt to read {} stream failed", reader.getName()));
    return std::move(*data);
}

} // namespace

MPP12SequentialPropsReader::MPP12SequentialPropsReader(MPPFormatReader& reader)
    : MPP12SequentialPropsReader(wholeStream(reader)) {}

MPP12SequentialPropsReader::MPP12SequentialPropsReader(std::vector<std::uint8_t> allData)
    : _allData(std::move(allData)), _nextPropertyStartOffset(kFrameHeaderSize) {
    if (_allData.size() < kFrameHeaderSize)
        return;
    _magicHeaderInt = integerAt(_allData, kMagicOffset);
    _propsCount = integerAt(_allData, kCountOffset);
}

bool MPP12SequentialPropsReader::readNextProperty() {
    const std::uint64_t dataOffset = _nextPropertyStartOffset + kPropertyHeaderSize;
    if (dataOffset > _allData.size() || _nextPropertyIndex >= _propsCount)
        return false;
    const std::span<const std::uint8_t> all(_allData);
    _curPropertyHeader = all.subspan(static_cast<std::size_t>(_nextPropertyStartOffset), kPropertyHeaderSize);
    const std::uint64_t size = headerWord(curPropertyType() == kSizeInThirdWordType ? 2 : 0);
    if (dataOffset + size > _allData.size())
        return false;
    _curPropertyData = all.subspan(static_cast<std::size_t>(dataOffset), static_cast<std::size_t>(size));
    _nextPropertyStartOffset = dataOffset + size + size % 2; // payloads are padded to an even length
    ++_nextPropertyIndex;
    return true;
}

std::uint32_t MPP12SequentialPropsReader::curPropertyType() const noexcept { return headerWord(1); }

std::uint32_t MPP12SequentialPropsReader::headerWord(std::size_t index) const noexcept {
    return _curPropertyHeader.empty() ? 0 : integerAt(_curPropertyHeader, 4 * index);
}

} // namespace brackwater
