#include "TWMSPCommon/WorkingTime/WorkingTimeDates.h"

#include "Platform/Log/Log.h"
#include "TWMSPCommon/WorkingTime/MSPEScheduleCalendar.h"

namespace brackwater {

Date dateAdvancedByDuration(Date date, double duration, bool forward, const MSPEScheduleCalendar* calendar) {
    return dateAdvancedByDuration(date, duration, forward, true, calendar);
}

Date dateAdvancedByDuration(Date date, double duration, bool forward, bool allowEdgeTime,
                            const MSPEScheduleCalendar* calendar) {
    if (calendar)
        logLine("WARINING: Custom Calendars not supported to advance date by duration yet. Standard propject Calendar "
                "will be used instead.");
    const auto& standard = MSPEScheduleCalendar::standardCalendar();
    return standard.dateAdvanceByDuration(date, duration, forward, allowEdgeTime).value_or(date);
}

bool isWorkingDayInCalendar(Date date, const MSPEScheduleCalendar* calendar) {
    if (calendar)
        logLine("WARINING: Custom Calendars not supported to determine working days yet. Standard propject Calendar "
                "will be used instead.");
    return MSPEScheduleCalendar::standardCalendar().isWorkingDay(date);
}

} // namespace brackwater
