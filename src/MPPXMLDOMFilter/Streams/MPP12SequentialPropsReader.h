#pragma once

#include "MPPXMLDOMFilter/Container/MPPFormatReader.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace brackwater {

/// Walks a template's stream of properties one by one. Sizes and counts in the stream may be anything: the walk ends at
/// the first property that does not fit.
class MPP12SequentialPropsReader {
public:
    /// Takes the whole stream; raises ReadFromStreamException when it cannot be read.
    explicit MPP12SequentialPropsReader(MPPFormatReader& reader);
    /// A stream that is in memory.
    explicit MPP12SequentialPropsReader(std::vector<std::uint8_t> allData);

    /// Steps to the next property; false at the end.
    bool readNextProperty();
    /// The head's second word; 0 when there is no head.
    [[nodiscard]] std::uint32_t curPropertyType() const noexcept;
    [[nodiscard]] std::span<const std::uint8_t> curPropertyData() const noexcept { return _curPropertyData; }
    /// The head of 12 bytes: size, type, third word. Empty before the first property.
    [[nodiscard]] std::span<const std::uint8_t> curPropertyHeader() const noexcept { return _curPropertyHeader; }
    /// A word of the head: 0 size, 1 type, 2 third word; 0 when there is no head.
    [[nodiscard]] std::uint32_t headerWord(std::size_t index) const noexcept;
    [[nodiscard]] std::uint32_t magicHeaderInt() const noexcept { return _magicHeaderInt; }

private:
    std::vector<std::uint8_t> _allData;
    std::span<const std::uint8_t> _curPropertyData;
    std::span<const std::uint8_t> _curPropertyHeader;
    std::uint64_t _nextPropertyStartOffset;
    std::uint32_t _propsCount = 0;
    std::uint32_t _nextPropertyIndex = 0;
    std::uint32_t _magicHeaderInt = 0;
};

} // namespace brackwater
