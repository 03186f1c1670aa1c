#include "MPPXMLDOMFilter/Corrections/BaseCalendars.h"

#include "MPPXMLDOMFilter/Model/MPPProject.h"

#include <fmt/format.h>

#include <set>
#include <string>

namespace brackwater {

void correctDefaultCalendarBase(MPPProject& project) {
    if (MPPCalendar* calendar = project.defaultResource()->calendar.record())
        calendar->baseCalendar.setRecord(project.standardCalendar);
}

void nameBaseCalendars(MPPProject& project) {
    std::set<std::string> taken;
    for (const auto& calendar : project.baseCalendars)
        taken.insert(calendar->name.value_or(""));
    for (const auto& calendar : project.baseCalendars) {
        if (calendar->name && !calendar->name->empty())
            continue;
        std::string name = fmt::format("Calendar {}", calendar->ID);
        while (!taken.insert(name).second)
            name += "'";
        calendar->name = std::move(name);
    }
}

} // namespace brackwater
