#pragma once

#include "TWMSPCommon/MSPExportMapper/Calendars/MSPECalendarEvents.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace brackwater {

/// A group of events, all overtime or all time off, and the exceptions to which they are folded: disjoint spans, each
/// with one list of working times.
class MSPECalendarExceptions {
public:
    /// The events of a `calendar` element.
    explicit MSPECalendarExceptions(XMLElement zelbCalendar);
    /// The days of dated `flattened-schedule-day` elements. Overtime days must have spans, the others must have none.
    MSPECalendarExceptions(std::span<const XMLElement> zelbFlattenedExceptions, bool overtime);
    /// Given events, in any order.
    MSPECalendarExceptions(std::optional<std::string> calendarName, bool overtime,
                           std::vector<MSPEZelbEventInfo> zelbEventInfos);

    /// Fills the list of exceptions; call once.
    void mapEvents();

    [[nodiscard]] const std::vector<MSPEExceptionInfo>& exceptions() const noexcept { return _mppExceptionInfos; }
    [[nodiscard]] std::int64_t exceptionsCount() const noexcept;
    // Each returns false if the index is out of range, and then does not touch its out parameters.
    [[nodiscard]] bool exception(std::int64_t index, Date& fromDate, Date& toDate,
                                 std::int64_t* numberOfDays = nullptr) const;
    [[nodiscard]] bool exception(std::int64_t index, std::int64_t& workingTimesCount) const;
    [[nodiscard]] bool exception(std::int64_t index, std::int64_t workingTime, double& fromTime, double& toTime) const;

    [[nodiscard]] const std::optional<std::string>& calendarName() const noexcept { return _calendarName; }
    [[nodiscard]] bool overtime() const noexcept { return _overtime; }

private:
    [[nodiscard]] const MSPEExceptionInfo* exceptionAt(std::int64_t index) const noexcept;

    std::optional<std::string> _calendarName;
    bool _overtime = false;
    std::vector<MSPEZelbEventInfo> _zelbEventInfos;
    std::vector<MSPEExceptionInfo> _mppExceptionInfos;
};

} // namespace brackwater
