#include "MPPXMLDOMFilter/Streams/MPP12CalendarWriter.h"

#include "Platform/Exception.h"

#include <algorithm>

namespace brackwater {

namespace {

constexpr std::uint64_t kStandardID = 1;
constexpr std::uint64_t kDefaultID = 2;
constexpr std::uint64_t kFirstFreeID = 3;

} // namespace

bool MPP12CalendarWriter::calendarDataShouldBeWritten(const MPPCalendar& calendar) {
    if (!calendar.baseCalendar.record() && calendar.ID != kStandardID && calendar.ID != kDefaultID)
        return true;
    return calendar.ID != kDefaultID && definesAnything(calendar);
}

void MPP12CalendarWriter::writeSteps() {
    MPPCalendarStreamWriter::writeSteps();
    copyChildFromTemplate("Props");
}

std::uint32_t& MPP12CalendarWriter::workWeekCounter() const {
    static std::uint32_t counter = 21; // not reset between exports
    return counter;
}

void MPP12CalendarWriter::preprocessProject(MPPProject& project) {
    assertThat(project.standardCalendar != nullptr, "The project has no standard calendar.");
    project.standardCalendar->name = "Standard";
    project.standardCalendar->ID = kStandardID;
    if (MPPCalendar* calendar = project.defaultResource()->calendar.record())
        calendar->ID = kDefaultID;
    if (!project.calendar.record())
        project.calendar.setRecord(project.standardCalendar);

    auto& baseCalendars = project.baseCalendars;
    baseCalendars.erase(std::remove(baseCalendars.begin(), baseCalendars.end(), project.standardCalendar),
                        baseCalendars.end());
    std::uint64_t nextID = kFirstFreeID;
    for (const auto& calendar : baseCalendars)
        calendar->ID = nextID++;

    for (const auto& resource : project.resources) {
        if (!resource->calendar.record()) {
            auto calendar = std::make_shared<MPPCalendar>();
            calendar->baseCalendar.setRecord(project.calendar.pointer());
            resource->calendar.setRecord(std::move(calendar));
        }
        MPPCalendar* calendar = resource->calendar.record();
        calendar->ID = nextID++;
        calendar->name.reset();
    }
}

} // namespace brackwater
