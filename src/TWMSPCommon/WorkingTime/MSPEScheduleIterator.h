#pragma once

#include "Platform/Time/GregorianCalendar.h"
#include "TWMSPCommon/WorkingTime/MSPEScheduleCalendar.h"

#include <cstdint>
#include <optional>

namespace brackwater {

/// Iterates over the working periods of a calendar, from the day of a date forward or backward. The calendar must
/// outlive it. Ends at a day followed by seven non-working days.
class MSPEScheduleIterator {
public:
    MSPEScheduleIterator(const MSPEScheduleCalendar& calendar, Date date, bool forward);

    struct Period {
        MSPEScheduleCalendar::TimePeriod timePeriod;
        std::int64_t timePeriodIndex = 0; ///< in its day
        Date date;                        ///< midnight of its day
        std::uint64_t flag = 0;           ///< bit 0: the first one of a new day
    };
    /// Nothing after the last one.
    [[nodiscard]] std::optional<Period> nextTimePeriod();

private:
    void prepareNextIteration();
    void enterDay();

    const MSPEScheduleCalendar& _scheduleCalendar;
    bool _forward;
    bool _found = false; ///< a next period is ready
    std::int64_t _nextWeekday = 0;
    std::int64_t _nextTimePeriodIndex = 0;
    GregorianCalendar _gregorian;
    Date _nextDate; ///< midnight of the next period's day
    std::int64_t _nextDateTimePeriods = 0;
    std::uint64_t _flag = 0;
    double _oneDayInterval;
};

} // namespace brackwater
