#include "TWMSPCommon/MSPExportMapper/Calendars/MSPEScheduleInfo.h"

#include "Platform/Values/Exception.h"
#include "TWMSPCommon/MSPExportMapper/Calendars/MSPECalendarExceptions.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <utility>

namespace brackwater {

namespace {

constexpr std::int32_t kSunday = 1;
constexpr std::int32_t kSaturday = 7;
constexpr std::size_t kDayTypes = 8; // including type 0, which is no day

std::size_t placeOfDayType(std::int32_t dayType) {
    assertThat(dayType >= 0 && dayType <= MSPEScheduleInfo::kLastDayType, "Incorrect value of argument dayType ({}).",
               dayType);
    return static_cast<std::size_t>(dayType);
}

/// A day of the default working week: 8:00 to 12:00 and 13:00 to 17:00, but nothing at the weekend.
MSPEWorkingTimes defaultWorkingTimes(std::int32_t dayType) {
    if (dayType == kSunday || dayType == kSaturday)
        return {};
    return {{28800.0, 43200.0}, {46800.0, 61200.0}};
}

const char* yesOrNo(bool value) { return value ? "YES" : "NO"; }

std::string descriptionOfDay(const MSPEWorkingTimes* workingTimes) {
    if (!workingTimes)
        return "(null)";
    std::string text;
    for (const MSPEWorkingTime& workingTime : *workingTimes)
        text += workingTime.description();
    return text;
}

std::string descriptionOfExceptions(const MSPEScheduleInfo::Exceptions& exceptions) {
    std::string text;
    for (const auto& group : exceptions)
        for (const MSPEExceptionInfo& exception : group->exceptions())
            text += exception.description();
    return text;
}

} // namespace

MSPEScheduleInfo::MSPEScheduleInfo(XMLElement zelbResource, std::optional<std::string> parentKey, std::int64_t uid,
                                   std::string name)
    : calendarUID(uid), calendarName(std::move(name)), isBaseCalendar(!parentKey), _zelbResource(zelbResource),
      _parentKey(std::move(parentKey)) {}

void MSPEScheduleInfo::setProjetDefaults() {
    isBaseCalendar = true;
    for (std::int32_t dayType = kFirstDayType; dayType <= kLastDayType; ++dayType)
        resetWorkingTimesForDayType(dayType) = defaultWorkingTimes(dayType);
    overtimeExceptions.clear();
    timeOffExceptions.clear();
}

void MSPEScheduleInfo::ensureProjetDefaultWeekDays() {
    for (std::int32_t dayType = kFirstDayType; dayType <= kLastDayType; ++dayType)
        if (!workingTimesForDayType(dayType))
            resetWorkingTimesForDayType(dayType) = defaultWorkingTimes(dayType);
}

bool MSPEScheduleInfo::hasData() const noexcept { return hasWeekDaysData() || hasOvertimeData() || hasTimeOffData(); }

bool MSPEScheduleInfo::hasWeekDaysData() const noexcept {
    return std::any_of(_workingTimes.begin(), _workingTimes.end(), [](const Day& entry) { return entry.has_value(); });
}

void MSPEScheduleInfo::removeWorkingTimesForDayType(std::int32_t dayType) { day(dayType).reset(); }

MSPEWorkingTimes& MSPEScheduleInfo::resetWorkingTimesForDayType(std::int32_t dayType) { return day(dayType).emplace(); }

void MSPEScheduleInfo::addWorkingTimeForDayType(MSPEWorkingTime workingTime, std::int32_t dayType) {
    Day& entry = day(dayType);
    if (!entry)
        entry.emplace();
    entry->push_back(workingTime);
}

void MSPEScheduleInfo::addWorkingTimesForDayType(const MSPEWorkingTimes* workingTimes, std::int32_t dayType) {
    day(dayType) = workingTimes ? Day(*workingTimes) : std::nullopt;
}

const MSPEWorkingTimes* MSPEScheduleInfo::workingTimesForDayType(std::int32_t dayType) const {
    const std::size_t place = placeOfDayType(dayType);
    const bool isNamed = place < _workingTimes.size() && _workingTimes[place];
    return isNamed ? &*_workingTimes[place] : nullptr;
}

MSPEScheduleInfo::Day& MSPEScheduleInfo::day(std::int32_t dayType) {
    const std::size_t place = placeOfDayType(dayType);
    if (_workingTimes.empty())
        _workingTimes.resize(kDayTypes);
    return _workingTimes[place];
}

std::string MSPEScheduleInfo::description() const {
    static constexpr std::array<const char*, 8> kDayNames = {"",          "sunday",   "monday", "tuesday",
                                                             "wednesday", "thursday", "friday", "saturday"};
    std::string text = fmt::format(
        "\n{} resourceID={} parentKey={} isBaseCalendar={} hasData={} calendar={}\nworkingTimes: ",
        "<MSPEScheduleInfo>", _zelbResource ? _zelbResource->attributeForName("id").value_or("(null)") : "(null)",
        fmt::ptr(_parentKey ? &*_parentKey : nullptr), yesOrNo(isBaseCalendar), yesOrNo(hasData()),
        fmt::ptr(calendar.get()));
    for (std::int32_t dayType = kFirstDayType; dayType <= kLastDayType; ++dayType) {
        const MSPEWorkingTimes* workingTimes = workingTimesForDayType(dayType);
        text += fmt::format("\n  {} ({}): {}", kDayNames[static_cast<std::size_t>(dayType)],
                            workingTimes ? workingTimes->size() : 0, descriptionOfDay(workingTimes));
    }
    text += fmt::format("\novertime ({}): {}", overtimeExceptions.size(), descriptionOfExceptions(overtimeExceptions));
    text += fmt::format("\ntimeOff ({}): {}", timeOffExceptions.size(), descriptionOfExceptions(timeOffExceptions));
    return text;
}

} // namespace brackwater
