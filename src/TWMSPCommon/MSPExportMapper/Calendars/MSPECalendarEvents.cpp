#include "TWMSPCommon/MSPExportMapper/Calendars/MSPECalendarEvents.h"

#include "Platform/Values/Exception.h"
#include "TWMSPCommon/MSPExportMapper/Calendars/MSPEDayOfDate.h"
#include "TWMSPCommon/MSPImportMapper/MSPIUtilities.h"

#include <fmt/format.h>

namespace brackwater {

std::string MSPEWorkingTime::description() const {
    return fmt::format("<MSPEWorkingTime>: [{}-{}] ", MSPIUtilities::hourMinSecFromDuration(_fromTime),
                       MSPIUtilities::hourMinSecFromDuration(_toTime));
}

std::string MSPEExceptionInfo::description() const {
    std::string text = fmt::format("<MSPEExceptionInfo>: fromDate={} toDate={} ",
                                   MSPIUtilities::mppToZelbDateTime(_fromDate).value_or("(null)"),
                                   MSPIUtilities::mppToZelbDateTime(_toDate).value_or("(null)"));
    for (const MSPEWorkingTime& workingTime : _workingTimes)
        text += workingTime.description();
    return text;
}

namespace {

constexpr double kSecondsPerDay = 86400.0;

std::optional<Date> dateAttribute(XMLElement element, std::string_view name) {
    return MSPIUtilities::zelbToMppDateTime(element.attributeForName(name).value_or(""));
}

std::string clockText(std::optional<Date> date) {
    return date ? MSPIUtilities::hourMinSecFromDuration(secondsSinceMidnight(*date)) : "(null)";
}

} // namespace

MSPEZelbEventInfo::MSPEZelbEventInfo(XMLElement zelbEvent) : _hasTimeRange(true) {
    const std::optional<Date> startDate = dateAttribute(zelbEvent, "start");
    const std::optional<Date> endDate = dateAttribute(zelbEvent, "end");
    // Compares only the times, whatever the days.
    const bool isRange = startDate && endDate && secondsSinceMidnight(*startDate) <= secondsSinceMidnight(*endDate);
    assertThat(isRange, "Incoorrect calendar event start ({}) and end ({}) time.", clockText(startDate),
               clockText(endDate));

    _fromDate = beginOfDay(*startDate);
    _start = secondsSinceMidnight(*startDate);
    _toDate = endOfDay(*endDate);
    _end = secondsSinceMidnight(*endDate);
    if (_start < _end)
        return;

    // An end at midnight is the end of the day before: subtracts a day's length, even across a clock change.
    assertThat(_start == 0.0, "Calendar event start and end times may be equal only at midnight (00:00:00).");
    assertThat(_toDate.secondsSince(_fromDate) >= kSecondsPerDay, "Calendar event start and end days are too close.");
    _toDate = _toDate.advancedBy(-kSecondsPerDay);
    _end = kSecondsPerDay - 1.0;
}

std::string MSPEZelbEventInfo::description() const {
    return fmt::format("<MSPEZelbEventInfo>: fromDate={} toDate={} start={} end={} hasTimeRange={}",
                       MSPIUtilities::mppToZelbDateTime(_fromDate).value_or("(null)"),
                       MSPIUtilities::mppToZelbDateTime(_toDate).value_or("(null)"),
                       MSPIUtilities::hourMinSecFromDuration(_start), MSPIUtilities::hourMinSecFromDuration(_end),
                       _hasTimeRange ? "YES" : "NO");
}

} // namespace brackwater
