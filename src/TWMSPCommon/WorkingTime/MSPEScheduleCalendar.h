#pragma once

#include "Platform/Time/Date.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brackwater {

class GregorianCalendar;
class XMLElement;

/// Working time of a week that repeats: which weekdays are worked, from when to when. Weekdays are numbers from 1,
/// Sunday, to 7, Saturday. Times of day are seconds since midnight, durations seconds of working time; dates are read
/// in the system zone. The periods of a day must rise and not overlap; they are kept as they were added.
///
/// Another day is reached by adding 86400 seconds, so that behind a change of the clock midnight is off by the change.
///
/// Checks that fail raise kInternalInconsistencyException: a weekday outside 1 to 7 where no other answer is named.
class MSPEScheduleCalendar {
public:
    struct TimePeriod {
        std::int64_t fromHour = 0;
        std::int64_t fromMinute = 0;
        std::int64_t fromSecond = 0;
        std::int64_t toHour = 0;
        std::int64_t toMinute = 0;
        std::int64_t toSecond = 0;

        friend bool operator==(const TimePeriod&, const TimePeriod&) = default;
    };
    struct WorkingDay {
        bool isWorkingDay = false;
        std::optional<std::vector<TimePeriod>> timePeriods;
    };
    struct TimeOfDay {
        std::int64_t hour = 0;
        std::int64_t minute = 0;
        std::int64_t second = 0;

        friend bool operator==(const TimeOfDay&, const TimeOfDay&) = default;
    };
    /// A moment within working time.
    struct WorkingMoment {
        Date date;
        double secondsSinceMidnight = 0.0;
        std::int64_t timePeriodIndex = 0;
    };

    /// No weekday is worked.
    MSPEScheduleCalendar() = default;
    /// Reads the "schedule-day" children of a "schedule" element. Days and spans that do not read are left out.
    explicit MSPEScheduleCalendar(const XMLElement& zelbSchedule);
    /// Monday to Friday, 8:00 to 12:00 and 13:00 to 17:00.
    [[nodiscard]] static MSPEScheduleCalendar withStandardCalendar();
    /// The same, shared.
    [[nodiscard]] static const MSPEScheduleCalendar& standardCalendar();

    void addWorkingTimePeriod(const TimePeriod& period, std::int64_t weekday);

    /// The date moved by so much working time; nothing for a calendar without working days, and where the way leads
    /// further than any date. Without `allowEdgeTime` an advance that ends with a period is carried on to the begin of
    /// the next one (backward: to the end of the one before). Raises a failed check for a missing date and for a
    /// negative duration.
    [[nodiscard]] std::optional<Date> dateAdvanceByDuration(std::optional<Date> date, double duration, bool forward,
                                                            bool allowEdgeTime = true) const;
    /// The nearest working moment in the direction, within seven days: the date itself, where a period lasts on
    /// (backward: has lasted). Nothing where there is none.
    [[nodiscard]] std::optional<Date> startDateForDate(Date date, bool forward) const;
    [[nodiscard]] std::optional<WorkingMoment> startForDate(Date date, bool forward) const;
    /// Working seconds between two dates; 0.0 unless `fromDate` is earlier.
    [[nodiscard]] double workingTimeFromDate(Date fromDate, Date toDate) const;

    [[nodiscard]] bool isWorkingDay(Date date) const;
    [[nodiscard]] const WorkingDay& workingDay(std::int64_t weekday) const;
    [[nodiscard]] bool isWorkingDayWeekday(std::int64_t weekday) const;
    [[nodiscard]] std::int64_t timePeriodsInWeekday(std::int64_t weekday) const;

    // Of a period by its index in a weekday. Nothing, or -1.0, for a weekday outside 1 to 7 and an index without
    // period.

    [[nodiscard]] double durationOfTimePeriod(std::int64_t index, std::int64_t weekday) const;
    [[nodiscard]] std::optional<TimeOfDay> startOfTimePeriod(std::int64_t index, std::int64_t weekday) const;
    [[nodiscard]] std::optional<TimeOfDay> endOfTimePeriod(std::int64_t index, std::int64_t weekday) const;
    [[nodiscard]] double startTimeForTimePeriod(std::int64_t index, std::int64_t weekday) const;
    [[nodiscard]] double endTimeForTimePeriod(std::int64_t index, std::int64_t weekday) const;

    [[nodiscard]] std::string description() const;

private:
    class Advance; ///< the way of one advance through the days

    [[nodiscard]] const TimePeriod* timePeriod(std::int64_t index, std::int64_t weekday) const;
    [[nodiscard]] std::optional<std::int64_t> periodAt(double secondsSinceMidnight, std::int64_t weekday,
                                                       bool forward) const;
    [[nodiscard]] double workingTimeOfWeek() const;

    std::array<WorkingDay, 8> _workingDays; ///< by weekday; entry 0 is never filled
};

} // namespace brackwater
