#pragma once

#include "MPPXMLDOMFilter/Model/RecordReference.h"
#include "Platform/Values/Guid.h"

#include <cstdint>
#include <string>

namespace brackwater {

/// A link between two tasks.
struct MPPConstraint {
    MPPConstraint() : _GUID(Guid::random()) {}

    std::uint64_t ID = 0;
    TaskReference task1;             ///< the predecessor
    TaskReference task2;             ///< the successor
    std::int32_t constraintType = 0; ///< 0 "FF", 1 "FS", 2 "SF", 3 "SS"
    double lag = 0;                  ///< MSPDI link lag: tenths of a minute, or a percentage
    bool isPercentage = false;

    [[nodiscard]] const Guid& GUID() const noexcept { return _GUID; }
    void setGUID(const Guid& guid) noexcept { _GUID = guid; }
    [[nodiscard]] std::string description() const;

private:
    Guid _GUID;
};

} // namespace brackwater
