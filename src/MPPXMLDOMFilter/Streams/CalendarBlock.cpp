#include "MPPXMLDOMFilter/Streams/CalendarBlock.h"

#include "MPPXMLDOMFilter/Streams/RowBuilder.h"
#include "Platform/Values/Exception.h"

#include <array>
#include <string>

namespace brackwater {

namespace {

constexpr std::string_view kTooManyRangesException = "TooManyRangesException";
constexpr std::size_t kMaxRanges = 5;
constexpr std::uint32_t kMinutesPerDay = 24 * 60;
constexpr std::uint32_t kTenths = 10;
constexpr std::uint32_t kDaily = 1; ///< kind of an exception: its days follow one another

std::uint32_t minutesOf(const std::optional<MPPCalendarTime>& time) {
    return time ? std::uint32_t{time->hours()} * 60 + time->minutes() : 0;
}

// An end of 00:00 is the end of the day; a range that ends before it begins has no length.
std::uint32_t lengthInMinutes(std::uint32_t start, std::uint32_t end) {
    if (start < end)
        return end - start;
    return end == 0 ? kMinutesPerDay - start : 0;
}

constexpr std::size_t kDaySize = 60;
using RangesBlock = RowBuilder<58>;
using DayBlock = RowBuilder<kDaySize>;
using WeekBlock = RowBuilder<7 * kDaySize>;

RangesBlock rangesBlock(const MPPRangeList& ranges) {
    RangesBlock block;
    if (ranges.empty()) {
        block.at(0).zeroes(58);
        return block;
    }
    if (ranges.size() > kMaxRanges)
        throw Exception(kTooManyRangesException, "Not more than 5 time ranges can be written to a calendar");

    // Tenths of a minute; zeros past the last range.
    std::array<std::uint32_t, kMaxRanges> starts{};
    std::array<std::uint32_t, kMaxRanges> lengths{};
    std::array<std::uint32_t, kMaxRanges> runningTotals{};
    std::uint32_t total = 0;
    for (std::size_t i = 0; i < ranges.size(); ++i) {
        const std::uint32_t start = minutesOf(ranges[i]->start);
        starts[i] = start * kTenths;
        lengths[i] = lengthInMinutes(start, minutesOf(ranges[i]->end)) * kTenths;
        total += lengths[i];
        runningTotals[i] = total;
    }

    block.at(0).lowWord(ranges.size());
    block.at(2).integer(total);
    for (std::size_t i = 0; i < kMaxRanges; ++i)
        block.at(6 + 2 * i).lowWord(starts[i]);
    block.at(16).word(0);
    for (std::size_t i = 0; i < kMaxRanges; ++i)
        block.at(18 + 4 * i).integer(lengths[i]);
    for (std::size_t i = 0; i < kMaxRanges; ++i)
        block.at(38 + 4 * i).integer(runningTotals[i]);
    return block;
}

// A day without a list of its own takes its hours from the base calendar.
DayBlock dayBlock(const MPPRangeList* ranges) {
    DayBlock block;
    block.at(0).word(ranges ? 0 : 1);
    block.at(2).row(ranges ? rangesBlock(*ranges) : rangesBlock({}));
    return block;
}

// Seven days, Sunday first.
WeekBlock weekBlock(const MPPCalendarWorkWeek& week) {
    WeekBlock block;
    std::size_t offset = 0;
    for (const MPPDayRanges* day : week.days()) {
        block.at(offset).row(dayBlock(day->get()));
        offset += kDaySize;
    }
    return block;
}

// A length in bytes, then the text and its terminator; no text is a length of 0 alone.
void writeAlignedName(MPPData& data, const std::optional<std::string>& name) {
    const std::size_t lengthOffset = data.dataSize();
    data.writeInteger(0);
    if (!name)
        return;
    const std::size_t begin = data.dataSize();
    data.writeString(*name, MPPEncoding::Unicode);
    const std::size_t length = data.dataSize() - begin;
    data.writeIntegerAtOffset(static_cast<std::uint32_t>(length), lengthOffset);
    data.writeZeroesBlockOfSize(length % 4);
}

void writeCalendarException(MPPData& data, const MPPCalendarException& exception, DateEncoder& dates) {
    RowBuilder<88> row;
    row.at(0).days(dates(exception.startDate));
    row.at(2).days(dates(exception.endDate));
    row.at(4).word(exception.numberOfDays);
    row.at(6).zeroes(8);
    row.at(14).row(rangesBlock(exception.workRanges));
    row.at(72).integer(kDaily);
    row.at(76).integer(0); // meaning unknown, any number in real files
    row.at(80).integer(exception.number);
    row.at(84).integer(0); // meaning unknown, any number in real files
    row.end(data);
    writeAlignedName(data, exception.name);
}

void writeWorkWeek(MPPData& data, const MPPCalendarWorkWeek& week, std::uint32_t number, DateEncoder& dates) {
    RowBuilder<432> row;
    row.at(0).row(weekBlock(week));
    row.at(420).days(dates(week.startDate));
    row.at(422).days(dates(week.endDate));
    row.at(424).integer(number);
    row.at(428).integer(0);
    row.end(data);
    writeAlignedName(data, week.name);
}

} // namespace

void writeCalendarBlock(MPPData& data, const MPPCalendar& calendar, std::uint32_t& workWeekCounter) {
    static const MPPCalendarWorkWeek kNothingSaid;
    DateEncoder dates;
    weekBlock(calendar.defaultWorkWeek ? *calendar.defaultWorkWeek : kNothingSaid).end(data);
    data.writeInteger(static_cast<std::uint32_t>(calendar.exceptions.size()));
    for (const auto& exception : calendar.exceptions)
        writeCalendarException(data, *exception, dates);
    data.writeInteger(static_cast<std::uint32_t>(calendar.workWeeks.size()));
    for (const auto& week : calendar.workWeeks) {
        writeWorkWeek(data, *week, workWeekCounter, dates);
        ++workWeekCounter; // behind the week: one that raises takes no number
    }
}

} // namespace brackwater
