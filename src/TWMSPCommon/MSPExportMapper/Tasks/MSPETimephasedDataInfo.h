#pragma once

#include "Platform/Time/Date.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace brackwater {

class MSPEMapper;
class MSPEXMLTimephasedDataAdapter;

using MSPETimephasedDataArray = std::vector<std::shared_ptr<MSPEXMLTimephasedDataAdapter>>;

/// One span of time, split into "TimephasedData" elements: one per calendar day.
class MSPETimephasedDataInfo {
public:
    /// The effort for spans whose days get no `Value`.
    static constexpr double kNoEffort = -1.0;
    /// The limit for one task, over all its segments or assignments: more than the target's 180 years of dates. A
    /// damaged date must not exhaust time and memory.
    static constexpr std::size_t kMostDays = 100'000;
    [[nodiscard]] static bool isTooLong(Date start, Date end);

    /// The dates are source texts. `effort`, in seconds, is the value of each day; a negative one means none.
    MSPETimephasedDataInfo(std::string_view startDate, std::string_view endDate, double effort, MSPEMapper* mapper);

    /// The part of the span on one calendar day of the system zone. It begins at the span's start or at midnight, and
    /// ends at 23:59:59 or at the span's end.
    struct Day {
        Date start;
        Date finish;
        bool isWorkingDay; ///< Monday to Friday
    };
    /// None if the span has no length or no end. Raises if the span has more days than any project.
    [[nodiscard]] std::vector<Day> days() const;

    /// Appends the elements of the span's days and, if `workingDays` is not null, whether each is a working day.
    void addTimephasedDataToArray(MSPETimephasedDataArray& array, std::vector<bool>* workingDays) const;

private:
    [[nodiscard]] std::shared_ptr<MSPEXMLTimephasedDataAdapter> newDayElement(const Day& day) const;

    std::optional<Date> _startDate;
    std::optional<Date> _endDate;
    double _effort;
    MSPEMapper* _mapper;
};

} // namespace brackwater
