#pragma once

#include "MPPXMLDOMFilter/Buffers/MPPOffsetMarkedData.h"

#include <unordered_map>

namespace brackwater {

/// "Var2Data": each element is its payload's size (4 bytes) and the payload, and belongs to an owner's id and a type.
class MPPVar2Data : public MPPOffsetMarkedData {
public:
    std::uint64_t startNewElement() override;
    /// Begins an element that can be found by type and id. A second one of the same pair replaces the first there.
    std::uint64_t startNewElementWithType(std::uint64_t type, std::uint64_t id);
    void closeCurrentElement() override;

    [[nodiscard]] std::uint64_t offsetOfElementWithType(std::uint64_t type, std::uint64_t id) const;
    /// 0 for an id without elements.
    [[nodiscard]] std::uint64_t numberOfElementsForID(std::uint64_t id) const;

private:
    std::unordered_map<std::uint64_t, std::uint64_t> _elemTypeAndID2Index;
    std::unordered_map<std::uint64_t, std::uint64_t> _elemID2OccurenceNumber;
};

} // namespace brackwater
