#include "Recurrence.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <optional>
#include <string_view>

namespace brackwater::inspect {

namespace {

using namespace std::chrono;
using Kind = Recurrence::Kind;

constexpr sys_days kDayZero = year(1983) / 12 / 31; // a Saturday
constexpr std::size_t kMostDays = 1000;
constexpr unsigned kLast = 5;
constexpr std::array<std::string_view, 7> kWeekdays{"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};

unsigned weekdayOf(int day) { return static_cast<unsigned>((day + 6) % 7); }

unsigned onlyWeekday(const Recurrence& recurrence) {
    unsigned weekday = 0;
    while (weekday < 6 && (recurrence.weekdays >> weekday & 1) == 0)
        ++weekday;
    return weekday;
}

// The day of a month that the recurrence means; none where the month is too short for it.
std::optional<sys_days> dayIn(const Recurrence& recurrence, year_month month) {
    if (recurrence.kind == Kind::MonthlyByDay || recurrence.kind == Kind::YearlyByDay) {
        const year_month_day date = month / day(recurrence.day);
        return date.ok() ? std::optional(sys_days(date)) : std::nullopt;
    }
    const weekday wanted(onlyWeekday(recurrence));
    if (recurrence.ordinal == kLast)
        return sys_days(month / wanted[last]);
    return sys_days(month / wanted[recurrence.ordinal]);
}

/// Collects days as long as more are wanted.
class Collector {
public:
    Collector(const Recurrence& recurrence, int firstDay, int lastDay)
        : _first(firstDay), _last(lastDay),
          _most(std::min<std::size_t>(kMostDays, recurrence.occurrences == 0 ? kMostDays : recurrence.occurrences)) {}

    /// False when this and all later days are not wanted any more.
    bool take(int day) {
        if (day > _last || _days.size() >= _most)
            return false;
        if (day >= _first)
            _days.push_back(static_cast<std::uint16_t>(day));
        return true;
    }
    [[nodiscard]] std::vector<std::uint16_t> days() && { return std::move(_days); }

private:
    int _first, _last;
    std::size_t _most;
    std::vector<std::uint16_t> _days;
};

void collectWeekly(const Recurrence& recurrence, int first, Collector& collector) {
    if (recurrence.weekdays == 0)
        return;
    const int step = 7 * static_cast<int>(recurrence.every);
    for (int sunday = first - static_cast<int>(weekdayOf(first));; sunday += step)
        for (int weekday = 0; weekday < 7; ++weekday)
            if ((recurrence.weekdays >> weekday & 1) != 0 && !collector.take(sunday + weekday))
                return;
}

void collectMonthly(const Recurrence& recurrence, int first, int last, Collector& collector) {
    const bool yearly = recurrence.kind == Kind::YearlyByDay || recurrence.kind == Kind::YearlyByWeekday;
    const year_month_day begin(kDayZero + days(first)), end(kDayZero + days(last));
    year_month month = yearly ? begin.year() / std::chrono::month(recurrence.month) : begin.year() / begin.month();
    const months step(yearly ? 12 : recurrence.every);
    for (; month <= end.year() / end.month(); month += step)
        if (const auto date = dayIn(recurrence, month);
            date && !collector.take(static_cast<int>((*date - kDayZero).count())))
            return;
}

std::string unitText(unsigned every, std::string_view unit) {
    return every == 1 ? fmt::format("every {}", unit) : fmt::format("every {} {}s", every, unit);
}

std::string weekdayText(const Recurrence& recurrence) {
    constexpr std::array<std::string_view, 6> ordinals{"", "1st", "2nd", "3rd", "4th", "last"};
    return fmt::format("{} {}", ordinals.at(recurrence.ordinal), kWeekdays.at(onlyWeekday(recurrence)));
}

std::string monthText(unsigned month) {
    constexpr std::array<std::string_view, 13> months{"",    "Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                      "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    return std::string(months.at(month));
}

} // namespace

std::vector<std::uint16_t> daysOf(const Recurrence& recurrence, std::uint16_t first, std::uint16_t last) {
    Collector collector(recurrence, first, last);
    if (recurrence.kind == Kind::Weekly)
        collectWeekly(recurrence, first, collector);
    else if (recurrence.kind == Kind::Daily)
        for (int day = first; collector.take(day);)
            day += static_cast<int>(recurrence.every);
    else
        collectMonthly(recurrence, first, last, collector);
    return std::move(collector).days();
}

std::string kindText(Recurrence::Kind kind) {
    switch (kind) {
    case Kind::Daily:
        return "daily";
    case Kind::Weekly:
        return "weekly";
    case Kind::MonthlyByWeekday:
        return "monthly by weekday";
    case Kind::MonthlyByDay:
        return "monthly by day";
    case Kind::YearlyByWeekday:
        return "yearly by weekday";
    case Kind::YearlyByDay:
        return "yearly by day";
    }
    return {};
}

std::string textOf(const Recurrence& recurrence) {
    std::vector<std::string_view> weekdays;
    switch (recurrence.kind) {
    case Kind::Daily:
        return unitText(recurrence.every, "day");
    case Kind::Weekly:
        for (std::size_t day = 0; day < kWeekdays.size(); ++day)
            if ((recurrence.weekdays >> day & 1) != 0)
                weekdays.push_back(kWeekdays.at(day));
        return fmt::format("{} on {}", unitText(recurrence.every, "week"), fmt::join(weekdays, ", "));
    case Kind::MonthlyByWeekday:
        return fmt::format("{} of {}", weekdayText(recurrence), unitText(recurrence.every, "month"));
    case Kind::MonthlyByDay:
        return fmt::format("day {} of {}", recurrence.day, unitText(recurrence.every, "month"));
    case Kind::YearlyByWeekday:
        return fmt::format("{} of every {}", weekdayText(recurrence), monthText(recurrence.month));
    case Kind::YearlyByDay:
        return fmt::format("every {} {}", monthText(recurrence.month), recurrence.day);
    }
    return {};
}

} // namespace brackwater::inspect
