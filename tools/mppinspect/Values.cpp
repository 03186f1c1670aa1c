#include "Values.h"

#include <fmt/format.h>

#include <array>
#include <chrono>
#include <cmath>
#include <string_view>
#include <utility>

namespace brackwater::inspect {

namespace {

constexpr std::uint32_t kNoDate = 0xFFFFFFFF;
constexpr std::chrono::sys_days kDayZero = std::chrono::year(1983) / 12 / 31;
constexpr std::uint16_t kEstimated = 0x20;
constexpr unsigned kTenthsPerDay = 24 * 60 * 10;

std::string oneOf(std::span<const std::string_view> names, std::uint16_t value) {
    return value < names.size() ? std::string(names[value]) : fmt::format("type {}", value);
}

} // namespace

std::optional<Date> dateFrom(std::uint32_t raw) {
    if (raw == kNoDate)
        return std::nullopt;
    return Date{static_cast<std::uint16_t>(raw >> 16), static_cast<std::uint16_t>(raw & 0xFFFF)};
}

std::string dayText(std::uint16_t days) {
    const std::chrono::year_month_day day(kDayZero + std::chrono::days(days));
    return fmt::format("{:04}-{:02}-{:02}", static_cast<int>(day.year()), static_cast<unsigned>(day.month()),
                       static_cast<unsigned>(day.day()));
}

std::string timeText(std::uint32_t tenths) {
    const std::uint32_t seconds = tenths % 10 * 6;
    std::string text = fmt::format("{:02}:{:02}", tenths / 600, tenths / 10 % 60);
    if (seconds != 0)
        text += fmt::format(":{:02}", seconds);
    return text;
}

std::string textOf(const Date& date) {
    if (date.tenths >= kTenthsPerDay)
        return fmt::format("{} +{} tenths of a minute", dayText(date.days), date.tenths);
    return dayText(date.days) + ' ' + timeText(date.tenths);
}

std::string isoText(const Date& date) {
    const std::chrono::days dayAfter(date.tenths / kTenthsPerDay); // a time beyond midnight belongs to the next days
    const std::chrono::year_month_day day(kDayZero + std::chrono::days(date.days) + dayAfter);
    const unsigned tenths = date.tenths % kTenthsPerDay;
    return fmt::format("{:04}-{:02}-{:02}T{:02}:{:02}:{:02}", static_cast<int>(day.year()),
                       static_cast<unsigned>(day.month()), static_cast<unsigned>(day.day()), tenths / 600,
                       tenths / 10 % 60, tenths % 10 * 6);
}

std::string textOf(const std::optional<Date>& date) { return date ? textOf(*date) : std::string(); }

std::string numberText(double value) {
    if (!std::isfinite(value))
        return fmt::format("{}", value);
    std::string text = std::abs(value) < 1e15 ? fmt::format("{:.3f}", value) : fmt::format("{:g}", value);
    if (const auto point = text.find('.'); point != std::string::npos && text.find('e') == std::string::npos) {
        text.erase(text.find_last_not_of('0') + 1);
        if (text.back() == '.')
            text.pop_back();
    }
    return text == "-0" ? "0" : text;
}

namespace {

constexpr std::uint16_t kPercent = 19, kElapsedPercent = 20;

std::uint16_t codeOf(const Duration& duration) { return duration.unitCode & static_cast<std::uint16_t>(~kEstimated); }

} // namespace

bool isEstimated(const Duration& duration) { return (duration.unitCode & kEstimated) != 0; }

bool isPercentage(const Duration& duration) {
    return codeOf(duration) == kPercent || codeOf(duration) == kElapsedPercent;
}

std::string unitText(const Duration& duration) {
    constexpr std::array<std::pair<std::uint16_t, std::string_view>, 13> names{{{3, "min"},
                                                                                {4, "emin"},
                                                                                {5, "h"},
                                                                                {6, "eh"},
                                                                                {7, "d"},
                                                                                {8, "ed"},
                                                                                {9, "w"},
                                                                                {10, "ew"},
                                                                                {11, "mon"},
                                                                                {12, "emon"},
                                                                                {kPercent, "%"},
                                                                                {kElapsedPercent, "e%"},
                                                                                // what a project's own row has
                                                                                {21, "d"}}};
    const std::uint16_t code = codeOf(duration);
    for (const auto& [known, name] : names)
        if (known == code)
            return std::string(name);
    return fmt::format("unit {}", code);
}

std::string textOf(const Duration& duration, const WorkingUnits& units) {
    constexpr double wholeDay = 24 * 60;
    const double day = units.minutesPerDay;
    const std::array<std::pair<std::string_view, double>, 10> minutesOf{{{"min", 1},
                                                                         {"emin", 1},
                                                                         {"h", 60},
                                                                         {"eh", 60},
                                                                         {"d", day},
                                                                         {"ed", wholeDay},
                                                                         {"w", units.minutesPerWeek},
                                                                         {"ew", 7 * wholeDay},
                                                                         {"mon", day * units.daysPerMonth},
                                                                         {"emon", 30 * wholeDay}}};
    const std::string unit = unitText(duration);
    const char* const mark = isEstimated(duration) ? "?" : "";
    if (isPercentage(duration))
        return fmt::format("{}{}{}", duration.tenths, unit, mark);
    for (const auto& [name, minutes] : minutesOf)
        if (name == unit && minutes > 0)
            return fmt::format("{}{}{}", numberText(duration.tenths / 10.0 / minutes), name, mark);
    return fmt::format("{}min (unit {}){}", numberText(duration.tenths / 10.0), codeOf(duration), mark);
}

std::string workText(double thousandthsOfMinutes) { return numberText(thousandthsOfMinutes / 60000.0) + "h"; }

std::string textOf(const Guid& guid) {
    constexpr std::array<std::size_t, 16> order{3, 2, 1, 0, 5, 4, 7, 6, 8, 9, 10, 11, 12, 13, 14, 15};
    std::string text;
    for (std::size_t i = 0; i < order.size(); ++i)
        text += fmt::format("{}{:02X}", i == 4 || i == 6 || i == 8 || i == 10 ? "-" : "", guid.at(order.at(i)));
    return text;
}

std::string constraintText(std::uint16_t type) {
    constexpr std::array<std::string_view, 8> names{"as soon as possible", "as late as possible", "must start on",
                                                    "must finish on",      "start no earlier",    "start no later",
                                                    "finish no earlier",   "finish no later"};
    return oneOf(names, type);
}

std::string linkTypeText(std::uint16_t type) {
    constexpr std::array<std::string_view, 4> names{"finish-finish", "finish-start", "start-finish", "start-start"};
    return oneOf(names, type);
}

std::string contourText(std::uint16_t type) {
    constexpr std::array<std::string_view, 9> names{
        "flat", "back loaded", "front loaded", "double peak", "early peak", "late peak", "bell", "turtle", "contoured"};
    return oneOf(names, type);
}

std::string taskTypeText(std::uint16_t type) {
    constexpr std::array<std::string_view, 3> names{"fixed units", "fixed duration", "fixed work"};
    return oneOf(names, type);
}

} // namespace brackwater::inspect
