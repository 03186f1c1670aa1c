#include "MPPXMLDOMFilter/Streams/MPP14CalendarWriter.h"

namespace brackwater {

bool MPP14CalendarWriter::calendarDataShouldBeWritten(const MPPCalendar& calendar) {
    if (calendar.ID == 1 || calendar.ID == 2)
        return false;
    return !calendar.baseCalendar.record() || definesAnything(calendar);
}

std::uint32_t& MPP14CalendarWriter::workWeekCounter() const {
    static std::uint32_t counter = 21; // apart from that of the 2007 layout; not reset between exports
    return counter;
}

} // namespace brackwater
