#pragma once

#include "MPPXMLDOMFilter/Model/MPPCalendarTimeRange.h"
#include "Platform/Date.h"

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

    [[nodiscard]] std::string description() const;
};

} // namespace brackwater
