#include "MPPXMLDOMFilter/Model/MPPCalendarException.h"

#include <fmt/format.h>

namespace brackwater {

namespace {
std::string shownDate(const std::optional<Date>& date) {
    return date ? fmt::format("{:.0f}", date->secondsSince1970) : "(null)";
}
} // namespace

std::string MPPCalendarException::description() const {
    return fmt::format("<MPPCalendarException>: name='{}' startDate={} endDate={} workRanges={}\n    {}",
                       name.value_or("(null)"), shownDate(startDate), shownDate(endDate), workRanges.size(),
                       descriptionOfRanges(&workRanges));
}

} // namespace brackwater
