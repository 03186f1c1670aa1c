#include "MPPXMLDOMFilter/Model/MPPTask.h"

#include <fmt/compile.h>

namespace brackwater {

namespace {
constexpr std::uint32_t kNoID = 0xFFFFFFFF;
}

std::uint32_t MPPTask::parentTaskID() const { return parent ? static_cast<std::uint32_t>(parent->ID) : kNoID; }

std::uint32_t MPPTask::calendarID() const {
    const MPPCalendar* record = calendar.record();
    return record ? static_cast<std::uint32_t>(record->ID) : kNoID;
}

std::string MPPTask::description() const { return descriptionAs("<MPPTask>"); }

std::string MPPTask::descriptionAs(const char* className) const {
    return fmt::format(FMT_COMPILE("{}: ID={} title=\"{}\" outlineLevel={} parent: {}"), className, ID,
                       title.value_or("(null)"), outlineLevel,
                       parent ? fmt::format(FMT_COMPILE("ID={}"), parent->ID) : "<null>");
}

} // namespace brackwater
