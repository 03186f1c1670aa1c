#include "TWMSPCommon/MSPExportMapper/Source/MSPESourceEvents.h"

#include "Platform/Text/TextReadings.h"
#include "Platform/Time/Date.h"
#include "Platform/Time/TimeZone.h"
#include "Platform/Values/Exception.h"
#include "Platform/Values/Saturating.h"
#include "TWMSPCommon/MSPCExtensions.h"
#include "TWMSPCommon/MSPExportMapper/Calendars/MSPECalendarEvents.h"
#include "TWMSPCommon/MSPImportMapper/MSPIUtilities.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <string_view>

namespace brackwater {

namespace {

constexpr std::uint32_t kMinutesPerDay = 24 * 60;
constexpr double kSecondsPerMinute = 60;

/// A moment in local time: minutes since midnight, rounded down.
struct WallMinute {
    std::int64_t day = 0;
    std::uint32_t minute = 0;
};

class EventReader {
public:
    void readFlattenedDay(XMLElement day);
    void readCalendar(XMLElement calendar);
    [[nodiscard]] MPPCalendarSource take() { return std::move(_events); }

private:
    void readSpan(XMLElement span, std::int64_t day);
    void readEvent(XMLElement event, MPPSourceEventKind kind, const std::string& name);
    void addOvertime(const std::string& name, WallMinute start, WallMinute end);
    [[nodiscard]] WallMinute beginning(Date date) const;
    [[nodiscard]] WallMinute ending(Date date) const;
    [[nodiscard]] WallMinute wallMinute(double wallMinutes) const;

    TimeZone _systemZone = TimeZone::system();
    MPPCalendarSource _events;
};

WallMinute EventReader::wallMinute(double wallMinutes) const {
    constexpr double kFarthestDay = 1e9; // far outside the format, but safe for arithmetic
    const double day = std::clamp(std::floor(wallMinutes / kMinutesPerDay), -kFarthestDay, kFarthestDay);
    return {saturatingCut<std::int64_t>(day),
            saturatingCut<std::uint32_t>(std::fmod(wallMinutes - day * kMinutesPerDay, kMinutesPerDay))};
}

WallMinute EventReader::beginning(Date date) const {
    const double seconds = date.secondsSince1970 + static_cast<double>(_systemZone.secondsFromGMT(date));
    return wallMinute(std::floor(seconds / kSecondsPerMinute));
}

// Midnight, like its last second, ends the day before.
WallMinute EventReader::ending(Date date) const {
    WallMinute minute = beginning(date);
    if (minute.minute == 0)
        minute = {minute.day - 1, kMinutesPerDay};
    else if (beginning(date.advancedBy(1)).minute == 0)
        minute.minute = kMinutesPerDay;
    return minute;
}

std::optional<Date> dateAttribute(XMLElement element, std::string_view name) {
    return MSPIUtilities::zelbToMppDateTime(element.attributeForName(name).value_or(""));
}

void EventReader::readFlattenedDay(XMLElement day) {
    const std::optional<Date> date = dateAttribute(day, "date");
    assertThat(date.has_value(), "Failed to make MSPCDateComponents from ZELB date-time: '{}'.",
               day.attributeForName("date").value_or(""));
    const std::int64_t number = beginning(*date).day;
    const auto spans = day.objectsForXQuery(XMLQuery("time-span"));
    if (spans.empty())
        _events.push_back({MPPSourceEventKind::TimeOff, "Time Off", number, number, 0, kMinutesPerDay});
    for (const XMLElement span : spans)
        readSpan(span, number);
}

// Minutes from a span's attribute in seconds since midnight, limited to the day.
std::uint32_t minuteAttribute(XMLElement span, std::string_view name) {
    const auto seconds = static_cast<double>(integerValue(span.attributeForName(name).value_or("")));
    return std::min(saturatingCut<std::uint32_t>(seconds / kSecondsPerMinute), kMinutesPerDay);
}

void EventReader::readSpan(XMLElement span, std::int64_t day) {
    const std::uint32_t start = minuteAttribute(span, "start-time");
    const std::uint32_t end = minuteAttribute(span, "end-time");
    const bool isThroughMidnight = end < start;
    _events.push_back(
        {MPPSourceEventKind::Hours, "Overtime", day, day, start, isThroughMidnight ? kMinutesPerDay : end});
    if (isThroughMidnight && end > 0)
        _events.push_back({MPPSourceEventKind::Overtime, "Overtime", day + 1, day + 1, 0, end});
}

void EventReader::readCalendar(XMLElement calendar) {
    const bool overtime = boolAttributeForName(calendar, "overtime");
    const std::string name = stringByReplacingOccurrencesOfNewline(calendar.attributeForName("name").value_or(""));
    for (const XMLElement event : calendar.objectsForXQuery(XMLQuery("event")))
        readEvent(event, overtime ? MPPSourceEventKind::Overtime : MPPSourceEventKind::TimeOff, name);
}

void EventReader::readEvent(XMLElement event, MPPSourceEventKind kind, const std::string& name) {
    const std::optional<Date> start = dateAttribute(event, "start");
    const std::optional<Date> end = dateAttribute(event, "end");
    if (!start || !end || *start >= *end) {
        static_cast<void>(MSPEZelbEventInfo(event)); // fails if no export can store the event
        return;
    }
    const WallMinute first = beginning(*start);
    const WallMinute last = ending(*end);
    if (kind == MPPSourceEventKind::Overtime)
        addOvertime(name, first, last);
    else
        _events.push_back({kind, name, first.day, last.day, first.minute, last.minute});
}

void EventReader::addOvertime(const std::string& name, WallMinute start, WallMinute end) {
    constexpr auto kind = MPPSourceEventKind::Overtime;
    if (start.minute < end.minute) {
        _events.push_back({kind, name, start.day, end.day, start.minute, end.minute});
        return;
    }
    _events.push_back({kind, name, start.day, end.day - 1, start.minute, kMinutesPerDay});
    _events.push_back({kind, name, start.day + 1, end.day, 0, end.minute});
}

} // namespace

std::shared_ptr<const MPPCalendarSource> sourceEventsOfSchedule(XMLElement schedule) {
    EventReader reader;
    const std::vector<XMLElement> days = schedule.objectsForXQuery(XMLQuery("flattened-schedule-day[@date]"));
    for (const XMLElement day : days)
        reader.readFlattenedDay(day);
    if (days.empty()) {
        const std::vector<XMLElement> calendars = schedule.objectsForXQuery(XMLQuery("calendar"));
        if (calendars.empty())
            return nullptr;
        for (const XMLElement calendar : calendars)
            reader.readCalendar(calendar);
    }
    return std::make_shared<const MPPCalendarSource>(reader.take());
}

} // namespace brackwater
