#include "MPPXMLDOMFilter/Model/MPPCalendar.h"

#include <fmt/format.h>

namespace brackwater {

std::string MPPCalendar::description() const {
    const auto base = baseCalendar.pointer();
    std::string text = fmt::format(
        "<MPPCalendar>: ID={} name=\"{}\" isBaseCalendar={} baseCalendar: {}\n  defaultWorkWeek: {}\n  workWeeks={}",
        ID, name.value_or("(null)"), isBaseCalendar ? "YES" : "NO", base ? fmt::format("ID={}", base->ID) : "<null>",
        defaultWorkWeek ? defaultWorkWeek->description() : "(null)", workWeeks.size());
    for (std::size_t i = 0; i < workWeeks.size(); ++i)
        text += fmt::format("\n  workWeek[{}]: {}", i, workWeeks[i]->description());
    text += fmt::format("\n  exceptions={}", exceptions.size());
    for (std::size_t i = 0; i < exceptions.size(); ++i)
        text += fmt::format("\n  exception[{}]: {}", i, exceptions[i]->description());
    return text;
}

} // namespace brackwater
