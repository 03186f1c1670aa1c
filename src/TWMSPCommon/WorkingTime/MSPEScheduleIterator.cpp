#include "TWMSPCommon/WorkingTime/MSPEScheduleIterator.h"

#include "Platform/Values/Exception.h"

namespace brackwater {
namespace {

constexpr double kSecondsPerDay = 86400.0;
constexpr int kDaysPerWeek = 7;
constexpr std::uint64_t kFirstOfNewDay = 1;

} // namespace

MSPEScheduleIterator::MSPEScheduleIterator(const MSPEScheduleCalendar& calendar, Date date, bool forward)
    : _scheduleCalendar(calendar), _forward(forward), _nextDate(_gregorian.startOfDay(date)),
      _oneDayInterval(forward ? kSecondsPerDay : -kSecondsPerDay) {
    const std::int64_t weekday = _gregorian.weekdayOfDate(_nextDate);
    if (_scheduleCalendar.isWorkingDayWeekday(weekday)) {
        _nextWeekday = weekday;
        enterDay();
    } else {
        prepareNextIteration();
    }
}

std::optional<MSPEScheduleIterator::Period> MSPEScheduleIterator::nextTimePeriod() {
    if (!_found)
        return std::nullopt;
    const auto& periods = *_scheduleCalendar.workingDay(_nextWeekday).timePeriods;
    const Period period{periods[static_cast<std::size_t>(_nextTimePeriodIndex)], _nextTimePeriodIndex, _nextDate,
                        _flag};
    prepareNextIteration();
    return period;
}

void MSPEScheduleIterator::prepareNextIteration() {
    _found = false;
    _flag = 0;
    const std::int64_t next = _forward ? _nextTimePeriodIndex + 1 : _nextTimePeriodIndex - 1;
    if (next >= 0 && next < _nextDateTimePeriods) {
        _nextTimePeriodIndex = next;
        _found = true;
        return;
    }
    for (int day = 0; day < kDaysPerWeek; ++day) {
        _nextDate = _nextDate.advancedBy(_oneDayInterval);
        _nextWeekday = _gregorian.weekdayOfDate(_nextDate);
        if (!_scheduleCalendar.isWorkingDayWeekday(_nextWeekday))
            continue;
        enterDay();
        _flag = kFirstOfNewDay;
        return;
    }
}

void MSPEScheduleIterator::enterDay() {
    _nextDateTimePeriods = _scheduleCalendar.timePeriodsInWeekday(_nextWeekday);
    _nextTimePeriodIndex = _forward ? 0 : _nextDateTimePeriods - 1;
    assertThat(_nextTimePeriodIndex >= 0, "Incorrect time period index: {}", _nextTimePeriodIndex);
    _found = true;
}

} // namespace brackwater
