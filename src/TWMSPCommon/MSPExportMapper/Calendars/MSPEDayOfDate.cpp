#include "TWMSPCommon/MSPExportMapper/Calendars/MSPEDayOfDate.h"

#include "Platform/Time/GregorianCalendar.h"

namespace brackwater {

namespace {

Date timeOfDay(Date date, std::int64_t hour, std::int64_t minute, std::int64_t second) {
    const GregorianCalendar calendar;
    CivilTime fields = calendar.fieldsOfDate(date);
    fields.hour = hour;
    fields.minute = minute;
    fields.second = second;
    // Another time on the day of an instant is always an instant, except at the very ends of time.
    return calendar.dateFromFields(fields).value_or(date);
}

} // namespace

Date beginOfDay(Date date) { return timeOfDay(date, 0, 0, 0); }

Date endOfDay(Date date) { return timeOfDay(date, 23, 59, 59); }

double secondsSinceMidnight(Date date) {
    const CivilTime fields = GregorianCalendar().fieldsOfDate(date);
    return static_cast<double>(fields.hour * 3600 + fields.minute * 60 + fields.second);
}

} // namespace brackwater
