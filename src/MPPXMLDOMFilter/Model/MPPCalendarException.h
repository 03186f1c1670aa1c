#pragma once

#include "MPPXMLDOMFilter/Model/MPPCalendarTimeRange.h"
#include "Platform/Date.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace brackwater {

/// A span of days that differs from the week. No ranges means that the days are non-working.
struct MPPCalendarException {
    std::optional<Date> startDate;
    std::optional<Date> endDate;
    MPPRangeList workRanges;
    std::optional<std::string> name;
    std::uint16_t numberOfDays = 2; ///< as the file tells it beside the two dates
    std::uint32_t number = 1;       ///< among the exceptions of the file

    [[nodiscard]] std::string description() const;
};

} // namespace brackwater
