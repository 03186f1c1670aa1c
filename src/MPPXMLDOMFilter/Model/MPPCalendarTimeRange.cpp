#include "MPPXMLDOMFilter/Model/MPPCalendarTimeRange.h"

#include <fmt/format.h>

namespace brackwater {

std::string MPPCalendarTimeRange::description() const {
    const MPPCalendarTime from = start.value_or(MPPCalendarTime{});
    const MPPCalendarTime to = end.value_or(MPPCalendarTime{});
    return fmt::format("<MPPCalendarTimeRange>: start={:02}:{:02} end={:02}:{:02}", from.hours(), from.minutes(),
                       to.hours(), to.minutes());
}

std::string descriptionOfRanges(const MPPRangeList* ranges) {
    if (!ranges)
        return "<null>";
    std::string text;
    for (const auto& range : *ranges) {
        const MPPCalendarTime from = range->start.value_or(MPPCalendarTime{});
        const MPPCalendarTime to = range->end.value_or(MPPCalendarTime{});
        text += fmt::format("{:02}:{:02}-{:02}:{:02} ", from.hours(), from.minutes(), to.hours(), to.minutes());
    }
    return text;
}

} // namespace brackwater
