// Moving a date by working time.

#include "Platform/Time/CivilTime.h"
#include "Platform/Time/GregorianCalendar.h"
#include "Platform/Values/Exception.h"
#include "TWMSPCommon/WorkingTime/MSPEScheduleCalendar.h"

#include <cmath>

namespace brackwater {
namespace {

constexpr double kSecondsPerDay = 86400.0;
constexpr int kDaysPerWeek = 7;
/// Anything less counts as nothing.
constexpr double kLeastDuration = 1.0;
/// The longest search for a working day, in days from the start of the advance.
constexpr std::int64_t kLastDayOfSearch = 6;
/// Walks up to about a thousand years day by day; beyond that, skips whole weeks to finish in time.
constexpr double kWeeksWalked = 52'000.0;

} // namespace

/// Walks from a working moment through days and periods until the duration is used up.
class MSPEScheduleCalendar::Advance {
public:
    Advance(const MSPEScheduleCalendar& calendar, const WorkingMoment& start, double duration, bool forward,
            bool allowEdgeTime)
        : _calendar(calendar), _day(_gregorian.startOfDay(start.date)), _startTime(start.secondsSinceMidnight),
          _periodIndex(start.timePeriodIndex), _remaining(duration), _forward(forward), _allowEdgeTime(allowEdgeTime),
          _step(forward ? kSecondsPerDay : -kSecondsPerDay) {}

    std::optional<Date> run() {
        if (std::fabs(_remaining) < kLeastDuration)
            return _day.advancedBy(_startTime);
        assertThat(_periodIndex >= 0, "No time period specified to start duration countdown from.");
        const double week = _calendar.workingTimeOfWeek();
        while (!_result && _remaining > 0.0) {
            // Prevents an endless walk through periods that end where they begin, or before.
            if (week <= 0.0 && _dayCount > std::int64_t{2} * kDaysPerWeek)
                return std::nullopt;
            if (_remaining > kWeeksWalked * week && week > 0.0 && _dayCount > 0)
                leaveOutWeeks(week);
            if (std::fabs(_day.secondsSince1970) > static_cast<double>(kLastWallSecond))
                return std::nullopt;
            walkDay();
        }
        return _result ? std::optional(_day.advancedBy(*_result)) : std::nullopt;
    }

private:
    void walkDay() {
        const std::int64_t weekday = _gregorian.weekdayOfDate(_day);
        if (!_calendar.isWorkingDayWeekday(weekday)) {
            goToNextDay();
            return;
        }
        const std::int64_t count = _calendar.timePeriodsInWeekday(weekday);
        assertThat(count >= _periodIndex, "Working day has no or too few working time periods.");
        if (_dayCount > 0)
            _periodIndex = _forward ? 0 : count - 1;
        const std::int64_t step = _forward ? 1 : -1;
        for (std::int64_t index = _periodIndex; index >= 0 && index < count; index += step) {
            if (takePeriod(index, weekday))
                return;
        }
        goToNextDay();
    }

    /// Uses up the period, or finds the result within it; returns whether the day is done or the result found.
    bool takePeriod(std::int64_t index, std::int64_t weekday) {
        const double start = _calendar.startTimeForTimePeriod(index, weekday);
        const double end = _calendar.endTimeForTimePeriod(index, weekday);
        const double begin = _consumed > 0 ? (_forward ? start : end) : _startTime;
        const double edge = _forward ? end : start;
        const double target = _forward ? begin + _remaining : begin - _remaining;
        const bool within = _forward ? target <= edge : target >= edge;
        if (!within) {
            _remaining -= _forward ? edge - begin : begin - edge;
            ++_consumed;
            return false;
        }
        if (target == edge && !_allowEdgeTime)
            goBeyondEdge(index, weekday);
        else
            _result = target;
        return true;
    }

    /// Moves the result to the near edge of the next period. Without a working day in range, the advance continues
    /// after the days tried.
    void goBeyondEdge(std::int64_t index, std::int64_t weekday) {
        const std::int64_t next = _forward ? index + 1 : index - 1;
        if (next >= 0 && next < _calendar.timePeriodsInWeekday(weekday)) {
            _result = nearEdge(next, weekday);
            return;
        }
        do {
            goToNextDay();
            const std::int64_t day = _gregorian.weekdayOfDate(_day);
            if (_calendar.isWorkingDayWeekday(day)) {
                _result = nearEdge(_forward ? 0 : _calendar.timePeriodsInWeekday(day) - 1, day);
                return;
            }
        } while (_dayCount <= kLastDayOfSearch);
        goToNextDay();
    }

    double nearEdge(std::int64_t index, std::int64_t weekday) const {
        return _forward ? _calendar.startTimeForTimePeriod(index, weekday)
                        : _calendar.endTimeForTimePeriod(index, weekday);
    }

    void goToNextDay() {
        _day = _day.advancedBy(_step);
        ++_dayCount;
    }

    void leaveOutWeeks(double workingTimeOfWeek) {
        const double weeks = std::floor(_remaining / workingTimeOfWeek - kWeeksWalked);
        _remaining -= weeks * workingTimeOfWeek;
        _day = _day.advancedBy(weeks * kDaysPerWeek * _step);
    }

    const MSPEScheduleCalendar& _calendar;
    GregorianCalendar _gregorian;
    Date _day; ///< midnight, except for clock changes since the advance began
    double _startTime;
    std::int64_t _periodIndex;
    double _remaining;
    bool _forward;
    bool _allowEdgeTime;
    double _step;
    std::int64_t _consumed = 0; ///< periods used up
    std::int64_t _dayCount = 0;
    std::optional<double> _result; ///< seconds since `_day`
};

std::optional<Date> MSPEScheduleCalendar::dateAdvanceByDuration(std::optional<Date> date, double duration, bool forward,
                                                                bool allowEdgeTime) const {
    assertThat(date.has_value(), "Date to advance from not specified.");
    assertThat(!(duration < 0.0), "Duration can not be negative. To specify backward advance use argument forward=NO.");
    const auto start = startForDate(*date, forward);
    const bool tooLong = !(duration <= static_cast<double>(kLastWallSecond));
    if (!start || tooLong)
        return std::nullopt;
    return Advance(*this, *start, duration, forward, allowEdgeTime).run();
}

} // namespace brackwater
