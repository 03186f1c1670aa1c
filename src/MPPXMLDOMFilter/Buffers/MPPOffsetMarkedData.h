#pragma once

#include "MPPXMLDOMFilter/Buffers/MPPData.h"

#include <vector>

namespace brackwater {

inline constexpr std::string_view kOffsetMarkedDataException = "OffsetMarkedDataException";

/// A buffer of elements whose offsets in the whole stream are remembered. At most one element is open at a time; an
/// element is closed before the buffer is cleared.
class MPPOffsetMarkedData : public MPPData {
public:
    /// Begins an element and returns its index.
    virtual std::uint64_t startNewElement();
    virtual void closeCurrentElement();
    void clearBuffer() override;

    /// Elements begun so far; also the next element's index.
    [[nodiscard]] std::uint64_t elementsCount() const noexcept { return _elementOffsets.size(); }
    /// Bytes of the whole stream in front of the element.
    [[nodiscard]] std::uint64_t offsetOfElementAtIndex(std::uint64_t index) const {
        if (index >= elementsCount()) [[unlikely]]
            failIndex();
        return _elementOffsets[index];
    }

protected:
    /// Offset of the open element in the present buffer.
    [[nodiscard]] std::size_t curElementOffset() const noexcept { return _curElementOffset; }
    [[nodiscard]] bool writingElement() const noexcept { return _writingElement; }
    /// Raises when no element is open to be closed.
    void requireOpenElement() const {
        if (!_writingElement) [[unlikely]]
            failClosedElement();
    }

private:
    [[noreturn]] static void failIndex();
    [[noreturn]] static void failClosedElement();

    std::vector<std::uint64_t> _elementOffsets;
    std::size_t _curElementOffset = 0;
    bool _writingElement = false;
};

} // namespace brackwater
