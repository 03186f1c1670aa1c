#include "TWMSPCommon/MSPExportMapper/Tasks/MSPETimephasedDataInfo.h"

#include "MPPXMLDOMFilter/Adapters/MSPEXMLTimephasedDataAdapter.h"
#include "Platform/Time/GregorianCalendar.h"
#include "Platform/Values/Exception.h"
#include "TWMSPCommon/MSPExportMapper/Tasks/MSPETaskDates.h"
#include "TWMSPCommon/MSPImportMapper/MSPIUtilities.h"

#include <algorithm>

namespace brackwater {

namespace {

constexpr int kSunday = 1;
constexpr int kSaturday = 7;

constexpr double kSecondsOfDay = 86'400;

CivilTime lastSecondOfDay(CivilTime time) {
    time.hour = 23;
    time.minute = 59;
    time.second = 59;
    return time;
}

// If clocks go back at midnight, the second after 23:59:59 may be on the same day again; so the next day is not
// calculated from it.
CivilTime nextMidnight(CivilTime time) { return {time.year, time.month, time.day + 1, 0, 0, 0}; }

bool isWorkingDay(int weekday) { return weekday != kSunday && weekday != kSaturday; }

} // namespace

MSPETimephasedDataInfo::MSPETimephasedDataInfo(std::string_view startDate, std::string_view endDate, double effort,
                                               MSPEMapper* mapper)
    : _startDate(MSPIUtilities::zelbToMppDateTime(startDate)), _endDate(MSPIUtilities::zelbToMppDateTime(endDate)),
      _effort(effort), _mapper(mapper) {}

bool MSPETimephasedDataInfo::isTooLong(Date start, Date end) {
    return end.secondsSince(start) > static_cast<double>(kMostDays) * kSecondsOfDay;
}

std::vector<MSPETimephasedDataInfo::Day> MSPETimephasedDataInfo::days() const {
    std::vector<Day> days;
    if (!_startDate || !_endDate)
        return days;
    assertThat(!isTooLong(*_startDate, *_endDate), "Time span of timephased data is longer than {} days.", kMostDays);
    const GregorianCalendar calendar;
    for (Date current = *_startDate; current < *_endDate;) {
        const CivilTime time = calendar.fieldsOfDate(current);
        const Date dayEnd = calendar.dateFromFields(lastSecondOfDay(time)).value_or(*_endDate);
        days.push_back({current, std::min(dayEnd, *_endDate), isWorkingDay(calendar.weekdayOfDate(current))});
        current = calendar.dateFromFields(nextMidnight(time)).value_or(*_endDate);
    }
    return days;
}

void MSPETimephasedDataInfo::addTimephasedDataToArray(MSPETimephasedDataArray& array,
                                                      std::vector<bool>* workingDays) const {
    const std::vector<Day> spanDays = days();
    // A few segments that each span all of time would have the same effect.
    assertThat(array.size() + spanDays.size() <= kMostDays, "Timephased data of one task is longer than {} days.",
               kMostDays);
    for (const Day& day : spanDays) {
        array.push_back(newDayElement(day));
        if (workingDays)
            workingDays->push_back(day.isWorkingDay);
    }
}

std::shared_ptr<MSPEXMLTimephasedDataAdapter> MSPETimephasedDataInfo::newDayElement(const Day& day) const {
    auto element = MSPEXMLTimephasedDataAdapter::elementWithName("TimephasedData", _mapper);
    element->addChildElementWithName("Type", "1");
    element->addChildElementWithName("Unit", "1");
    element->addChildElementWithName("Start", mspdiTextOfDate(day.start));
    element->addChildElementWithName("Finish", mspdiTextOfDate(day.finish));
    if (_effort >= 0)
        element->addChildElementWithName("Value", MSPIUtilities::mppToMspdiDuration(_effort));
    return element;
}

} // namespace brackwater
