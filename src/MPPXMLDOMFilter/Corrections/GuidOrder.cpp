#include "MPPXMLDOMFilter/Corrections/GuidOrder.h"

#include "MPPXMLDOMFilter/Model/MPPProject.h"

#include <unordered_set>

namespace brackwater {

namespace {

template <typename Record>
void turn(Record& record) {
    record.setGUID(record.GUID().inWindowsOrder());
}

template <typename Records>
void turnEach(const Records& records) {
    for (const auto& record : records)
        turn(*record);
}

// Resources may share a calendar, and the project's is one of the others: each is converted once.
void turnCalendars(const MPPProject& project) {
    std::unordered_set<const MPPCalendar*> turned;
    const auto turnOnce = [&turned](MPPCalendar* calendar) {
        if (calendar != nullptr && turned.insert(calendar).second)
            turn(*calendar);
    };
    turnOnce(project.standardCalendar.get());
    turnOnce(project.calendar.record());
    for (const auto& calendar : project.baseCalendars)
        turnOnce(calendar.get());
    for (const auto& resource : project.resources)
        turnOnce(resource->calendar.record());
}

} // namespace

void correctGuidOrder(MPPProject& project) {
    turn(project);
    turnEach(project.tasks);
    turnEach(project.resources);
    turnEach(project.assignments);
    turnEach(project.constraints);
    turnCalendars(project);
}

} // namespace brackwater
