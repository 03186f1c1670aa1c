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

/// Working time of a repeating week: the working weekdays and their hours. Weekdays are numbers from 1, Sunday, to 7,
/// Saturday. Times of day are seconds since midnight, durations seconds of working time; dates are in the system zone.
/// The periods of a day must be sorted and disjoint; they are kept as added.
///
/// The next day is 86400 seconds later, so that after a clock change midnight is off by the change.
///
/// Failed checks raise kInternalInconsistencyException: a weekday outside 1 to 7 unless another result is documented.
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
    /// A moment in working time.
    struct WorkingMoment {
        Date date;
        double secondsSinceMidnight = 0.0;
        std::int64_t timePeriodIndex = 0;
    };

    /// Without working days.
    MSPEScheduleCalendar() = default;
    /// Parses the "schedule-day" children of a "schedule" element. Skips invalid days and spans.
    explicit MSPEScheduleCalendar(const XMLElement& zelbSchedule);
    /// Monday to Friday, 8:00 to 12:00 and 13:00 to 17:00.
    [[nodiscard]] static MSPEScheduleCalendar withStandardCalendar();
    /// The same, shared.
    [[nodiscard]] static const MSPEScheduleCalendar& standardCalendar();

    void addWorkingTimePeriod(const TimePeriod& period, std::int64_t weekday);

    /// The date moved by this much working time; nothing if the calendar has no working days, or the result is beyond
    /// any date. Without `allowEdgeTime`, a result at the end of a period moves to the start of the next one (backward:
    /// to the end of the previous one). Raises a failed check for a missing date or a negative duration.
    [[nodiscard]] std::optional<Date> dateAdvanceByDuration(std::optional<Date> date, double duration, bool forward,
                                                            bool allowEdgeTime = true) const;
    /// The nearest working moment in the direction, within seven days: the date itself if a period continues there
    /// (backward: if one ends there or continues). Nothing if there is none.
    [[nodiscard]] std::optional<Date> startDateForDate(Date date, bool forward) const;
    [[nodiscard]] std::optional<WorkingMoment> startForDate(Date date, bool forward) const;
    /// Working seconds between two dates; 0.0 unless `fromDate` is earlier.
    [[nodiscard]] double workingTimeFromDate(Date fromDate, Date toDate) const;

    [[nodiscard]] bool isWorkingDay(Date date) const;
    [[nodiscard]] const WorkingDay& workingDay(std::int64_t weekday) const;
    [[nodiscard]] bool isWorkingDayWeekday(std::int64_t weekday) const;
    [[nodiscard]] std::int64_t timePeriodsInWeekday(std::int64_t weekday) const;

    // For a period by its index in a weekday. Nothing, or -1.0, if the weekday is outside 1 to 7 or the index has no
    // period.

    [[nodiscard]] double durationOfTimePeriod(std::int64_t index, std::int64_t weekday) const;
    [[nodiscard]] std::optional<TimeOfDay> startOfTimePeriod(std::int64_t index, std::int64_t weekday) const;
    [[nodiscard]] std::optional<TimeOfDay> endOfTimePeriod(std::int64_t index, std::int64_t weekday) const;
    [[nodiscard]] double startTimeForTimePeriod(std::int64_t index, std::int64_t weekday) const;
    [[nodiscard]] double endTimeForTimePeriod(std::int64_t index, std::int64_t weekday) const;

    [[nodiscard]] std::string description() const;

private:
    class Advance; ///< one advance through the days

    [[nodiscard]] const TimePeriod* timePeriod(std::int64_t index, std::int64_t weekday) const;
    [[nodiscard]] std::optional<std::int64_t> periodAt(double secondsSinceMidnight, std::int64_t weekday,
                                                       bool forward) const;
    [[nodiscard]] double workingTimeOfWeek() const;

    std::array<WorkingDay, 8> _workingDays; ///< by weekday; entry 0 is never filled
};

} // namespace brackwater
