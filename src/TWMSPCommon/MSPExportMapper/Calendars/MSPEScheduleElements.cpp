#include "TWMSPCommon/MSPExportMapper/Calendars/MSPEScheduleElements.h"

#include "MPPXMLDOMFilter/Adapters/MSPEXMLCalendarAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLWeekDaysAdapter.h"
#include "Platform/Time/GregorianCalendar.h"
#include "Platform/Values/Exception.h"
#include "TWMSPCommon/MSPCExtensions.h"
#include "TWMSPCommon/MSPExportMapper/Calendars/MSPECalendarExceptions.h"
#include "TWMSPCommon/MSPExportMapper/Calendars/MSPEScheduleInfo.h"
#include "TWMSPCommon/MSPImportMapper/MSPIUtilities.h"

#include <fmt/format.h>

#include <bitset>
#include <memory>

namespace brackwater {

namespace {

using Element = std::shared_ptr<MSPEXMLAdapter>;

constexpr double kSecondsPerDay = 86400.0;
constexpr int kFirstDayType = MSPEScheduleInfo::kFirstDayType;
constexpr int kLastDayType = MSPEScheduleInfo::kLastDayType;

/// One calendar's elements; "WeekDays" and "Exceptions" are created on first use and then shared.
class ScheduleElements {
public:
    explicit ScheduleElements(MSPEXMLCalendarAdapter& calendar) : _calendar(calendar), _mapper(calendar.mapper()) {}

    void mapWeekDays(const MSPEScheduleInfo& info);
    void mapScheduleExceptions(const MSPEScheduleInfo::Exceptions& groups);
    void mapTimeOffExceptionsBG(const MSPEScheduleInfo::Exceptions& groups);

private:
    void mapException(const MSPECalendarExceptions& group, std::int64_t index);
    void mapWorkWeek(const MSPECalendarExceptions& group, std::int64_t index, MSPEXMLAdapter& workWeeks);
    void addNonWorkingDays(MSPEXMLAdapter& weekDays, Date fromDate, Date toDate) const;
    void addPeriod(MSPEXMLAdapter& element, Date fromDate, Date toDate) const;
    [[nodiscard]] std::shared_ptr<MSPEXMLWeekDayAdapter> newWeekDay(MSPEXMLAdapter& weekDays, int dayType) const;
    [[nodiscard]] Element childOf(MSPEXMLAdapter& element, std::string_view name) const;

    MSPEXMLCalendarAdapter& _calendar;
    MSPEMapper* _mapper;
    Element _weekDays;
    Element _exceptions;
};

void addTimes(MSPEXMLAdapter& workingTime, double fromTime, double toTime) {
    workingTime.addChildElementWithName("FromTime", MSPIUtilities::hourMinSecFromDuration(fromTime));
    workingTime.addChildElementWithName("ToTime", MSPIUtilities::hourMinSecFromDuration(toTime));
}

Element ScheduleElements::childOf(MSPEXMLAdapter& element, std::string_view name) const {
    Element child = element.addChildElementWithName(name);
    assertThat(child != nullptr, "Created object of incorrect class '{}'", MSPEXMLAdapter::classNameOf(child.get()));
    return child;
}

std::shared_ptr<MSPEXMLWeekDayAdapter> ScheduleElements::newWeekDay(MSPEXMLAdapter& weekDays, int dayType) const {
    auto weekDay = MSPEXMLWeekDayAdapter::elementWithName("WeekDay", _mapper);
    weekDay->addChildElementWithName("DayType", fmt::format("{}", dayType));
    weekDays.addChild(weekDay);
    return weekDay;
}

void ScheduleElements::mapWeekDays(const MSPEScheduleInfo& info) {
    _weekDays = childOf(_calendar, "WeekDays");
    const auto* week = dynamic_cast<const MSPEXMLWeekDaysAdapter*>(_weekDays.get());
    assertThat(week && week->mppDomObject() == _calendar.mppDomObject()->defaultWorkWeek,
               "MSPEXMLWeekDaysAdapter and MSPEXMLCalendarAdapter inconsistency.");
    for (int dayType = kFirstDayType; dayType <= kLastDayType; ++dayType) {
        const MSPEWorkingTimes* workingTimes = info.workingTimesForDayType(dayType);
        if (!workingTimes)
            continue; // inherited
        const auto weekDay = newWeekDay(*_weekDays, dayType);
        weekDay->addChildElementWithName("DayWorking", workingTimes->empty() ? "0" : "1");
        if (workingTimes->empty())
            continue;
        const Element container = childOf(*weekDay, "WorkingTimes");
        for (const MSPEWorkingTime& workingTime : *workingTimes)
            addTimes(*childOf(*container, "WorkingTime"), workingTime.fromTime(), workingTime.toTime());
    }
}

// A calendar with exceptions has a default week, empty if the schedule defines no day.
void ScheduleElements::mapScheduleExceptions(const MSPEScheduleInfo::Exceptions& groups) {
    for (const auto& group : groups) {
        if (group->exceptionsCount() == 0)
            continue;
        if (!_weekDays)
            _weekDays = childOf(_calendar, "WeekDays");
        if (!_exceptions)
            _exceptions = childOf(_calendar, "Exceptions");
        for (std::int64_t index = 0; index < group->exceptionsCount(); ++index)
            mapException(*group, index);
    }
}

void ScheduleElements::mapException(const MSPECalendarExceptions& group, std::int64_t index) {
    const auto exception = MSPEXMLExceptionAdapter::elementWithName("Exception", _mapper);
    _exceptions->addChild(exception);
    exception->addChildElementWithName("EnteredByOccurrences", "0");

    Date fromDate;
    Date toDate;
    std::int64_t numberOfDays = 0;
    const bool hasPeriod = group.exception(index, fromDate, toDate, &numberOfDays);
    assertThat(hasPeriod, "Failed to get time period from MPP Calendar Exception Info.");
    addPeriod(*exception, fromDate, toDate);

    exception->addChildElementWithName("Occurrences", fmt::format("{}", numberOfDays));
    exception->addChildElementWithName(
        "Name", stringByReplacingOccurrencesOfNewline(group.calendarName().value_or("Overtime")));
    exception->addChildElementWithName("Type", "1");
    exception->addChildElementWithName("DayWorking", group.overtime() ? "1" : "0");
    if (!group.overtime())
        return; // hours of time off are lost: the days are completely non-working

    const Element container = childOf(*exception, "WorkingTimes");
    std::int64_t workingTimesCount = 0;
    if (!group.exception(index, workingTimesCount))
        return;
    for (std::int64_t place = 0; place < workingTimesCount; ++place) {
        double fromTime = 0;
        double toTime = 0;
        if (!group.exception(index, place, fromTime, toTime))
            continue;
        const auto workingTime = MSPEXMLWorkingTimeAdapter::elementWithName("WorkingTime", _mapper);
        container->addChild(workingTime);
        addTimes(*workingTime, fromTime, toTime);
    }
}

// Also writes overtime days as non-working weeks.
void ScheduleElements::mapTimeOffExceptionsBG(const MSPEScheduleInfo::Exceptions& groups) {
    Element workWeeks;
    for (const auto& group : groups) {
        assertThat(group->overtime(), "Expected overtime exceptions.");
        if (group->exceptionsCount() == 0)
            continue;
        if (!workWeeks)
            workWeeks = childOf(_calendar, "WorkWeeks");
        for (std::int64_t index = 0; index < group->exceptionsCount(); ++index)
            mapWorkWeek(*group, index, *workWeeks);
    }
}

void ScheduleElements::mapWorkWeek(const MSPECalendarExceptions& group, std::int64_t index, MSPEXMLAdapter& workWeeks) {
    Date fromDate;
    Date toDate;
    const bool hasPeriod = group.exception(index, fromDate, toDate);
    assertThat(hasPeriod, "Failed to get time period from MPP Calendar Exception Info.");

    const auto workWeek = MSPEXMLWorkWeekAdapter::elementWithName("WorkWeek", _mapper);
    const Element weekDays = childOf(*workWeek, "WeekDays");
    workWeeks.addChild(workWeek);
    addPeriod(*workWeek, fromDate, toDate);
    workWeek->addChildElementWithName("Name", "Exception days");
    addNonWorkingDays(*weekDays, fromDate, toDate);
}

void ScheduleElements::addNonWorkingDays(MSPEXMLAdapter& weekDays, Date fromDate, Date toDate) const {
    const GregorianCalendar calendar;
    std::bitset<kLastDayType + 1> added;
    // A repeated day type would only replace an empty list with an empty list: seven are enough, however long the
    // exception is.
    for (Date date = fromDate; date < toDate && added.count() < kLastDayType; date = date.advancedBy(kSecondsPerDay)) {
        const int dayType = calendar.weekdayOfDate(date);
        assertThat(dayType >= kFirstDayType && dayType <= kLastDayType, "Incorrect dayType ({}). Must be from 1 to 7.",
                   dayType);
        newWeekDay(weekDays, dayType)->addChildElementWithName("DayWorking", "0");
        added.set(static_cast<std::size_t>(dayType));
    }
}

// Whole days in the system zone, ignoring the times of the dates.
void ScheduleElements::addPeriod(MSPEXMLAdapter& element, Date fromDate, Date toDate) const {
    const auto period = MSPEXMLTimePeriodAdapter::elementWithName("TimePeriod", _mapper);
    period->addChildElementWithName(
        "FromDate", MSPIUtilities::zelbToMspdiDateStartTime(MSPIUtilities::mppToZelbDateTime(fromDate).value_or("")));
    period->addChildElementWithName(
        "ToDate", MSPIUtilities::zelbToMspdiDateEndTime(MSPIUtilities::mppToZelbDateTime(toDate).value_or("")));
    element.addChild(period);
}

} // namespace

void mapScheduleInfoToCalendar(const MSPEScheduleInfo& info, MSPEXMLCalendarAdapter& calendar) {
    ScheduleElements elements(calendar);
    if (info.hasWeekDaysData())
        elements.mapWeekDays(info);
    if (info.hasOvertimeData()) {
        elements.mapScheduleExceptions(info.overtimeExceptions);
        if (info.extendedFormat)
            elements.mapTimeOffExceptionsBG(info.overtimeExceptions);
    }
    if (info.hasTimeOffData())
        elements.mapScheduleExceptions(info.timeOffExceptions);
}

} // namespace brackwater
