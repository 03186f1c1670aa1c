#pragma once

#include "MPPXMLDOMFilter/Model/MPPCalendarSource.h"
#include "MPPXMLDOMFilter/Model/RecordReference.h"
#include "Platform/Time/Date.h"
#include "Platform/Values/Guid.h"

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace brackwater {

/// A time of day in minutes. Both setters limit their values.
class MPPCalendarTime {
public:
    [[nodiscard]] std::uint8_t hours() const noexcept { return _hours; }
    [[nodiscard]] std::uint8_t minutes() const noexcept { return _minutes; }
    /// Stores 0 for a value above 23: 24:00, the end of the day, is 00:00 in the format.
    void setHours(std::uint8_t hours) noexcept { _hours = hours > 23 ? std::uint8_t{0} : hours; }
    /// Stores 59 for a value above 59.
    void setMinutes(std::uint8_t minutes) noexcept { _minutes = minutes > 59 ? std::uint8_t{59} : minutes; }

private:
    std::uint8_t _hours = 0;
    std::uint8_t _minutes = 0;
};

/// A working range of a day, at most one day long. An end of 00:00 is the midnight that ends the day.
struct MPPCalendarTimeRange {
    std::optional<MPPCalendarTime> start;
    std::optional<MPPCalendarTime> end;

    [[nodiscard]] std::string description() const;
};

/// The ranges of a day or an exception, in order. The entries are shared: an element may still fill a range in the
/// list.
using MPPRangeList = std::vector<std::shared_ptr<MPPCalendarTimeRange>>;

/// "08:00-12:00 13:00-17:00 "; "<null>" for an absent list.
[[nodiscard]] std::string descriptionOfRanges(const MPPRangeList* ranges);

/// A span of days that differs from the week. Without ranges the days are non-working.
struct MPPCalendarException {
    std::optional<Date> startDate;
    std::optional<Date> endDate;
    MPPRangeList workRanges;
    std::optional<std::string> name;
    std::uint16_t numberOfDays = 2; ///< written to the file beside the two dates
    std::uint32_t number = 1;       ///< among the exceptions of the file

    [[nodiscard]] std::string description() const;
};

/// The ranges of one weekday. Shared, since the element that fills the list may still grow it after the week took it.
/// Null and empty differ: null means that the day takes its hours from the base calendar, an empty list is a
/// non-working day.
using MPPDayRanges = std::shared_ptr<MPPRangeList>;

/// A week of working ranges: a calendar's default week, or a dated one.
struct MPPCalendarWorkWeek {
    MPPDayRanges sundayWorkRanges;
    MPPDayRanges mondayWorkRanges;
    MPPDayRanges tuesdayWorkRanges;
    MPPDayRanges wednesdayWorkRanges;
    MPPDayRanges thursdayWorkRanges;
    MPPDayRanges fridayWorkRanges;
    MPPDayRanges saturdayWorkRanges;
    std::optional<std::string> name;
    std::optional<Date> startDate; ///< first day of a dated week
    std::optional<Date> endDate;   ///< last day of a dated week

    /// The seven lists, Sunday first.
    [[nodiscard]] std::array<const MPPDayRanges*, 7> days() const noexcept {
        return {&sundayWorkRanges,   &mondayWorkRanges, &tuesdayWorkRanges, &wednesdayWorkRanges,
                &thursdayWorkRanges, &fridayWorkRanges, &saturdayWorkRanges};
    }
    [[nodiscard]] std::array<MPPDayRanges*, 7> days() noexcept {
        return {&sundayWorkRanges,   &mondayWorkRanges, &tuesdayWorkRanges, &wednesdayWorkRanges,
                &thursdayWorkRanges, &fridayWorkRanges, &saturdayWorkRanges};
    }
    /// True when at least one day has a list of its own, empty or not.
    [[nodiscard]] bool definesAnyDay() const noexcept;
    [[nodiscard]] std::string description() const;
};

/// A base calendar, or a resource's calendar that derives from one.
struct MPPCalendar {
    /// A random GUID.
    MPPCalendar() : MPPCalendar(Guid::random()) {}
    explicit MPPCalendar(const Guid& guid) : _GUID(guid) {}

    std::uint64_t ID = 0;
    CalendarReference baseCalendar; ///< unset for a base calendar
    std::optional<std::string> name;
    bool isBaseCalendar = false;
    std::shared_ptr<MPPCalendarWorkWeek> defaultWorkWeek; ///< null: the calendar does not define a week
    std::vector<std::shared_ptr<MPPCalendarWorkWeek>> workWeeks;
    std::vector<std::shared_ptr<MPPCalendarException>> exceptions;
    std::shared_ptr<const MPPCalendarSource> source; ///< null in an exact export, and if the source has no events

    [[nodiscard]] const Guid& GUID() const noexcept { return _GUID; }
    void setGUID(const Guid& guid) noexcept { _GUID = guid; }
    [[nodiscard]] std::string description() const;

private:
    Guid _GUID;
};

} // namespace brackwater
