#include "MPPXMLDOMFilter/Model/MPPCalendar.h"

#include <fmt/format.h>

#include <algorithm>

namespace brackwater {

std::string MPPCalendarTimeRange::description() const {
    const MPPCalendarTime from = start.value_or(MPPCalendarTime{});
    const MPPCalendarTime to = end.value_or(MPPCalendarTime{});
    return fmt::format("<MPPCalendarTimeRange>: start={:02}:{:02} end={:02}:{:02}", from.hours(), from.minutes(),
                       to.hours(), to.minutes());
}

std::string descriptionOfRanges(const MPPRangeList* ranges) {
    if (!ranges)
        return "<null>";
    std::string text;
    for (const auto& range : *ranges) {
        const MPPCalendarTime from = range->start.value_or(MPPCalendarTime{});
        const MPPCalendarTime to = range->end.value_or(MPPCalendarTime{});
        text += fmt::format("{:02}:{:02}-{:02}:{:02} ", from.hours(), from.minutes(), to.hours(), to.minutes());
    }
    return text;
}

namespace {
std::string shownDate(const std::optional<Date>& date) {
    return date ? fmt::format("{:.0f}", date->secondsSince1970) : "(null)";
}
} // namespace

std::string MPPCalendarException::description() const {
    return fmt::format("<MPPCalendarException>: name='{}' startDate={} endDate={} workRanges={}\n    {}",
                       name.value_or("(null)"), shownDate(startDate), shownDate(endDate), workRanges.size(),
                       descriptionOfRanges(&workRanges));
}

bool MPPCalendarWorkWeek::definesAnyDay() const noexcept {
    const auto lists = days();
    return std::any_of(lists.begin(), lists.end(), [](const MPPDayRanges* day) { return *day != nullptr; });
}

std::string MPPCalendarWorkWeek::description() const {
    static constexpr std::array kDayNames = {"sunday",   "monday", "tuesday", "wednesday",
                                             "thursday", "friday", "saturday"};
    std::string text = fmt::format("<MPPCalendarWorkWeek>: name='{}'", name.value_or("(null)"));
    const auto lists = days();
    for (std::size_t i = 0; i < lists.size(); ++i)
        text += fmt::format("\n    {}: {}", kDayNames[i], descriptionOfRanges(lists[i]->get()));
    return text;
}

std::string MPPCalendar::description() const {
    const auto base = baseCalendar.pointer();
    std::string text = fmt::format(
        "<MPPCalendar>: ID={} name=\"{}\" isBaseCalendar={} baseCalendar: {}\n  defaultWorkWeek: {}\n  workWeeks={}",
        ID, name.value_or("(null)"), isBaseCalendar ? "YES" : "NO", base ? fmt::format("ID={}", base->ID) : "<null>",
        defaultWorkWeek ? defaultWorkWeek->description() : "(null)", workWeeks.size());
    for (std::size_t i = 0; i < workWeeks.size(); ++i)
        text += fmt::format("\n  workWeek[{}]: {}", i, workWeeks[i]->description());
    text += fmt::format("\n  exceptions={}", exceptions.size());
    for (std::size_t i = 0; i < exceptions.size(); ++i)
        text += fmt::format("\n  exception[{}]: {}", i, exceptions[i]->description());
    return text;
}

} // namespace brackwater
