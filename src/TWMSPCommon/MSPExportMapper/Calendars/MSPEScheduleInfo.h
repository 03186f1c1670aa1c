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

/// The schedule of one resource while the resources are mapped: the working times of the weekdays that it names, and
/// its exceptions.
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

    /// Makes it a base calendar with the default working week and without exceptions.
    void setProjetDefaults();
    /// Gives the default working week's times to the days that the schedule does not name.
    void ensureProjetDefaultWeekDays();

    [[nodiscard]] bool hasData() const noexcept;
    [[nodiscard]] bool hasWeekDaysData() const noexcept;
    [[nodiscard]] bool hasOvertimeData() const noexcept { return !overtimeExceptions.empty(); }
    [[nodiscard]] bool hasTimeOffData() const noexcept { return !timeOffExceptions.empty(); }
    /// Whether it has exceptions of its own, in either form.
    [[nodiscard]] bool tellsExceptions() const noexcept { return hasOvertimeData() || hasTimeOffData() || source; }

    /// The day is inherited again.
    void removeWorkingTimesForDayType(std::int32_t dayType);
    /// The day is non-working; gives its new empty list.
    MSPEWorkingTimes& resetWorkingTimesForDayType(std::int32_t dayType);
    void addWorkingTimeForDayType(MSPEWorkingTime workingTime, std::int32_t dayType);
    /// Replaces the day's list; null: the day is inherited.
    void addWorkingTimesForDayType(const MSPEWorkingTimes* workingTimes, std::int32_t dayType);
    /// Null: the schedule says nothing of the day and inherits it. Empty: the day is not working.
    [[nodiscard]] const MSPEWorkingTimes* workingTimesForDayType(std::int32_t dayType) const;

    [[nodiscard]] const std::optional<XMLElement>& zelbResource() const noexcept { return _zelbResource; }
    /// `id` of the parent resource; none for the top schedule and for flat copies.
    [[nodiscard]] const std::optional<std::string>& parentKey() const noexcept { return _parentKey; }
    [[nodiscard]] std::string description() const;

    std::shared_ptr<MSPEXMLCalendarAdapter> calendar; ///< what the schedule fills; null until the hierarchy is built
    std::int64_t calendarUID = 0;
    std::optional<std::string> calendarName;
    bool isBaseCalendar = false;
    bool isParentSchedule = false; ///< some other schedule inherits from this one
    /// The schedule under the parent key, not owned; null until the hierarchy is built.
    MSPEScheduleInfo* parentInfo = nullptr;
    std::shared_ptr<MSPEScheduleInfo> flatCopy;
    bool extendedFormat = false; ///< the source used flattened days
    Exceptions overtimeExceptions;
    Exceptions timeOffExceptions;
    /// What the source says of exceptions, where that is kept: the two lists are then empty. Null where it says
    /// nothing.
    std::shared_ptr<const MPPCalendarSource> source;

private:
    using Day = std::optional<MSPEWorkingTimes>;

    /// The day's entry, made where the schedule named no day before.
    [[nodiscard]] Day& day(std::int32_t dayType);

    std::optional<XMLElement> _zelbResource;
    std::optional<std::string> _parentKey;
    /// By day type; no entries at all in a schedule that names no day, as most of a large document.
    std::vector<Day> _workingTimes;
};

} // namespace brackwater
