#include "TWMSPCommon/MSPExportMapper/Calendars/MSPECalendarExceptions.h"

#include "Platform/Text/TextReadings.h"
#include "Platform/Values/Exception.h"
#include "Platform/Values/Saturating.h"
#include "TWMSPCommon/MSPCExtensions.h"
#include "TWMSPCommon/MSPExportMapper/Calendars/MSPEDayOfDate.h"
#include "TWMSPCommon/MSPExportMapper/Calendars/MSPEEventSweep.h"
#include "TWMSPCommon/MSPImportMapper/MSPIUtilities.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

namespace brackwater {

namespace {

constexpr double kSecondsPerDay = 86400.0;

void sortEvents(std::vector<MSPEZelbEventInfo>& events) {
    std::stable_sort(events.begin(), events.end(), [](const auto& left, const auto& right) {
        return std::tuple(left.fromDate(), left.toDate()) < std::tuple(right.fromDate(), right.toDate());
    });
}

double timeAttribute(XMLElement span, std::string_view name) {
    return static_cast<double>(integerValue(span.attributeForName(name).value_or("")));
}

/// The events of a single day: one per span, or one without times.
void addFlattenedDay(XMLElement day, bool overtime, std::vector<MSPEZelbEventInfo>& events) {
    const std::string text = day.attributeForName("date").value_or("");
    const std::optional<Date> date = MSPIUtilities::zelbToMppDateTime(text);
    assertThat(date.has_value(), "Failed to make MSPCDateComponents from ZELB date-time: '{}'.", text);
    const std::vector<XMLElement> spans = day.objectsForXQuery(XMLQuery("time-span"));
    if (overtime) {
        assertThat(!spans.empty(), "We expect one or more 'time-span' children with time range.");
        for (const XMLElement span : spans)
            events.emplace_back(beginOfDay(*date), endOfDay(*date), timeAttribute(span, "start-time"),
                                timeAttribute(span, "end-time"));
    } else {
        assertThat(spans.empty(), "There should be no 'time-span' children. We need just a date.");
        events.emplace_back(beginOfDay(*date), endOfDay(*date));
    }
}

} // namespace

MSPECalendarExceptions::MSPECalendarExceptions(XMLElement zelbCalendar)
    : _calendarName(zelbCalendar.attributeForName("name")), _overtime(boolAttributeForName(zelbCalendar, "overtime")) {
    for (const XMLElement event : zelbCalendar.objectsForXQuery(XMLQuery("event")))
        _zelbEventInfos.emplace_back(event);
    sortEvents(_zelbEventInfos);
}

MSPECalendarExceptions::MSPECalendarExceptions(std::span<const XMLElement> zelbFlattenedExceptions, bool overtime)
    : _calendarName(overtime ? "Overtime" : "Time Off"), _overtime(overtime) {
    for (const XMLElement day : zelbFlattenedExceptions)
        addFlattenedDay(day, overtime, _zelbEventInfos);
    sortEvents(_zelbEventInfos);
}

MSPECalendarExceptions::MSPECalendarExceptions(std::optional<std::string> calendarName, bool overtime,
                                               std::vector<MSPEZelbEventInfo> zelbEventInfos)
    : _calendarName(std::move(calendarName)), _overtime(overtime), _zelbEventInfos(std::move(zelbEventInfos)) {
    sortEvents(_zelbEventInfos);
}

void MSPECalendarExceptions::mapEvents() {
    _mppExceptionInfos = joinTouchingExceptions(MSPEEventSweep(_zelbEventInfos).pieces());
}

std::int64_t MSPECalendarExceptions::exceptionsCount() const noexcept {
    return static_cast<std::int64_t>(_mppExceptionInfos.size());
}

bool MSPECalendarExceptions::exception(std::int64_t index, Date& fromDate, Date& toDate,
                                       std::int64_t* numberOfDays) const {
    const MSPEExceptionInfo* info = exceptionAt(index);
    if (!info)
        return false;
    fromDate = info->fromDate();
    toDate = info->toDate();
    if (numberOfDays)
        *numberOfDays = saturatingCut<std::int64_t>(std::ceil(toDate.secondsSince(fromDate) / kSecondsPerDay));
    return true;
}

bool MSPECalendarExceptions::exception(std::int64_t index, std::int64_t& workingTimesCount) const {
    const MSPEExceptionInfo* info = exceptionAt(index);
    if (!info)
        return false;
    workingTimesCount = static_cast<std::int64_t>(info->workingTimes().size());
    return true;
}

bool MSPECalendarExceptions::exception(std::int64_t index, std::int64_t workingTime, double& fromTime,
                                       double& toTime) const {
    const MSPEExceptionInfo* info = exceptionAt(index);
    if (!info || workingTime < 0 || std::cmp_greater_equal(workingTime, info->workingTimes().size()))
        return false;
    const MSPEWorkingTime& time = info->workingTimes()[static_cast<std::size_t>(workingTime)];
    fromTime = time.fromTime();
    toTime = time.toTime();
    return true;
}

const MSPEExceptionInfo* MSPECalendarExceptions::exceptionAt(std::int64_t index) const noexcept {
    if (index < 0 || index >= exceptionsCount())
        return nullptr;
    return &_mppExceptionInfos[static_cast<std::size_t>(index)];
}

} // namespace brackwater
