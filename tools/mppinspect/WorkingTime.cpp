#include "WorkingTime.h"

#include <algorithm>

namespace brackwater::inspect {

namespace {

constexpr std::uint32_t kTenthsPerDay = 24 * 60 * 10;
constexpr std::uint32_t kLastDay = 0xFFFF;
constexpr std::uint32_t kNoCalendar = 0xFFFFFFFF;
constexpr std::int64_t kDaysForAll = 1'000'000, kDaysForEach = 500;

// A moment by day and time; midnight at the end of a day is the next day's beginning.
Date momentOf(std::uint32_t day, std::uint32_t tenths) {
    if (tenths >= kTenthsPerDay && day < kLastDay)
        return {static_cast<std::uint16_t>(day + 1), 0};
    return {static_cast<std::uint16_t>(day), static_cast<std::uint16_t>(tenths)};
}

} // namespace

WorkingTime::WorkingTime(const ProjectFile& project)
    : _daysLeft(kDaysForAll + kDaysForEach * static_cast<std::int64_t>(project.assignments.size())) {
    for (const Calendar& calendar : project.calendars)
        _calendars.try_emplace(calendar.id, &calendar);
}

const CalendarHours& WorkingTime::hoursOf(CalendarId asked) {
    CalendarId id = asked;
    CalendarHours* derived = nullptr;
    for (int level = 0; level < CalendarHours::kMostLevels; ++level) {
        const auto calendar = id ? _calendars.find(*id) : _calendars.end();
        const bool isThere = calendar != _calendars.end();
        const auto [hours, isNew] = _hours.try_emplace(id.value_or(kNoCalendar), isThere ? calendar->second : nullptr);
        if (derived != nullptr)
            derived->deriveFrom(hours->second);
        if (!isNew || !isThere || !calendar->second->baseId)
            break;
        derived = &hours->second;
        id = calendar->second->baseId;
    }
    return _hours.at(asked.value_or(kNoCalendar));
}

// Shows `take` each stretch of work from a moment on, until it answers.
template <typename Take>
std::optional<Date> WorkingTime::walk(CalendarId calendar, Date from, const Take& take) {
    const CalendarHours& hours = hoursOf(calendar);
    std::uint32_t time = from.tenths;
    for (std::uint32_t day = from.days; day <= kLastDay && _daysLeft > 0; ++day) {
        --_daysLeft;
        for (const TimeRange& range : hours.on(static_cast<int>(day))) {
            const std::uint32_t begin = std::max(range.start, time), end = std::min(range.end, kTenthsPerDay);
            if (begin >= end)
                continue;
            if (const auto moment = take(begin, end))
                return momentOf(day, *moment);
        }
        time = time > kTenthsPerDay ? time - kTenthsPerDay : 0;
    }
    return std::nullopt;
}

std::optional<Date> WorkingTime::after(CalendarId calendar, Date start, std::int64_t tenths) {
    if (tenths <= 0)
        return start;
    return walk(calendar, start, [&tenths](std::uint32_t begin, std::uint32_t end) -> std::optional<std::uint32_t> {
        const std::int64_t stretch = end - begin;
        if (tenths <= stretch)
            return begin + static_cast<std::uint32_t>(tenths);
        tenths -= stretch;
        return std::nullopt;
    });
}

std::optional<Date> WorkingTime::nextWorking(CalendarId calendar, Date moment) {
    return walk(calendar, moment, [](std::uint32_t begin, std::uint32_t) { return std::optional(begin); });
}

} // namespace brackwater::inspect
