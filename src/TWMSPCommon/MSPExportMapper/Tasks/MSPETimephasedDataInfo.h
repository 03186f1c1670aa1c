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

/// One span of time, cut into "TimephasedData" elements: one for each calendar day that it touches.
class MSPETimephasedDataInfo {
public:
    /// An effort for spans whose days get no `Value`.
    static constexpr double kNoEffort = -1.0;
    /// What one task may have, over all its segments or assignments: beyond the 180 years of dates that the target
    /// holds. A damaged date must not fill time and memory with days.
    static constexpr std::size_t kMostDays = 100'000;
    [[nodiscard]] static bool isTooLong(Date start, Date end);

    /// The dates are source texts. `effort`, in seconds, is the value of each day; a negative one stands for none.
    MSPETimephasedDataInfo(std::string_view startDate, std::string_view endDate, double effort, MSPEMapper* mapper);

    /// What the span covers of one calendar day of the system zone. It begins at the span's start or at midnight, and
    /// ends at 23:59:59 or at the span's end.
    struct Day {
        Date start;
        Date finish;
        bool isWorkingDay; ///< Monday to Friday
    };
    /// None for a span without a length, or with a missing end. Raises for a span of more days than any project has.
    [[nodiscard]] std::vector<Day> days() const;

    /// Appends the elements of the span's days, and where `workingDays` is not null for each whether it is a working
    /// day.
    void addTimephasedDataToArray(MSPETimephasedDataArray& array, std::vector<bool>* workingDays) const;

private:
    [[nodiscard]] std::shared_ptr<MSPEXMLTimephasedDataAdapter> newDayElement(const Day& day) const;

    std::optional<Date> _startDate;
    std::optional<Date> _endDate;
    double _effort;
    MSPEMapper* _mapper;
};

} // namespace brackwater
