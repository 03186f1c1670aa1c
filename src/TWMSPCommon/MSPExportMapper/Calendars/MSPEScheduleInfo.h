#pragma once

#include "MPPXMLDOMFilter/Model/MPPCalendarSource.h"
#include "Platform/Xml/XMLElement.h"
#include "TWMSPCommon/MSPExportMapper/Calendars/MSPECalendarEvents.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace brackwater {

class MSPECalendarExceptions;
class MSPEXMLCalendarAdapter;

/// The schedule of one resource during mapping: the working times of the weekdays that it defines, and its exceptions.
///
/// Day types: 1 is Sunday, 7 is Saturday; 0 is valid but never filled. Any other is a failed assertion.
class MSPEScheduleInfo {
public:
    using Exceptions = std::vector<std::shared_ptr<MSPECalendarExceptions>>;

    static constexpr std::int32_t kFirstDayType = 1;
    static constexpr std::int32_t kLastDayType = 7;

    /// Without a parent key the schedule is a base calendar.
    MSPEScheduleInfo(XMLElement zelbResource, std::optional<std::string> parentKey, std::int64_t calendarUID,
                     std::string calendarName);
    /// Empty, for a flat copy.
    MSPEScheduleInfo() = default;

    /// Makes it a base calendar with the default working week and no exceptions.
    void setProjetDefaults();
    /// Sets undefined days to the times of the default working week.
    void ensureProjetDefaultWeekDays();

    [[nodiscard]] bool hasData() const noexcept;
    [[nodiscard]] bool hasWeekDaysData() const noexcept;
    [[nodiscard]] bool hasOvertimeData() const noexcept { return !overtimeExceptions.empty(); }
    [[nodiscard]] bool hasTimeOffData() const noexcept { return !timeOffExceptions.empty(); }
    /// Whether it has its own exceptions, in either form.
    [[nodiscard]] bool tellsExceptions() const noexcept { return hasOvertimeData() || hasTimeOffData() || source; }

    /// The day becomes inherited again.
    void removeWorkingTimesForDayType(std::int32_t dayType);
    /// The day becomes non-working; returns its new empty list.
    MSPEWorkingTimes& resetWorkingTimesForDayType(std::int32_t dayType);
    void addWorkingTimeForDayType(MSPEWorkingTime workingTime, std::int32_t dayType);
    /// Replaces the day's list; null: the day becomes inherited.
    void addWorkingTimesForDayType(const MSPEWorkingTimes* workingTimes, std::int32_t dayType);
    /// Null: the schedule does not define the day and inherits it. Empty: the day is non-working.
    [[nodiscard]] const MSPEWorkingTimes* workingTimesForDayType(std::int32_t dayType) const;

    [[nodiscard]] const std::optional<XMLElement>& zelbResource() const noexcept { return _zelbResource; }
    /// `id` of the parent resource; none for the top schedule and for flat copies.
    [[nodiscard]] const std::optional<std::string>& parentKey() const noexcept { return _parentKey; }
    [[nodiscard]] std::string description() const;

    std::shared_ptr<MSPEXMLCalendarAdapter> calendar; ///< filled from the schedule; null until the hierarchy is built
    std::int64_t calendarUID = 0;
    std::optional<std::string> calendarName;
    bool isBaseCalendar = false;
    bool isParentSchedule = false; ///< another schedule inherits from this one
    /// The schedule under the parent key, not owned; null until the hierarchy is built.
    MSPEScheduleInfo* parentInfo = nullptr;
    std::shared_ptr<MSPEScheduleInfo> flatCopy;
    bool extendedFormat = false; ///< the source used flattened days
    Exceptions overtimeExceptions;
    Exceptions timeOffExceptions;
    /// The source's exceptions, if kept: the two lists are then empty. Null if the source has none.
    std::shared_ptr<const MPPCalendarSource> source;

private:
    using Day = std::optional<MSPEWorkingTimes>;

    /// The day's entry, created if the schedule defined no day before.
    [[nodiscard]] Day& day(std::int32_t dayType);

    std::optional<XMLElement> _zelbResource;
    std::optional<std::string> _parentKey;
    /// By day type; empty if the schedule defines no day, like most in a large document.
    std::vector<Day> _workingTimes;
};

} // namespace brackwater
