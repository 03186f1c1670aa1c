#pragma once

#include "MPPXMLDOMFilter/Model/MPPCalendarTime.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace brackwater {

/// A working range of a day, at most one day long. An end of 00:00 is the midnight that ends the day.
struct MPPCalendarTimeRange {
    std::optional<MPPCalendarTime> start;
    std::optional<MPPCalendarTime> end;

    [[nodiscard]] std::string description() const;
};

/// The ranges of a day or an exception, in order. Shared entries: an element may still fill a range that the list
/// holds.
using MPPRangeList = std::vector<std::shared_ptr<MPPCalendarTimeRange>>;

/// "08:00-12:00 13:00-17:00 "; "<null>" for an absent list.
[[nodiscard]] std::string descriptionOfRanges(const MPPRangeList* ranges);

} // namespace brackwater
