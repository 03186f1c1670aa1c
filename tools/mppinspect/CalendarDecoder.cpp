#include "Decoders.h"
#include "RecurrenceReader.h"
#include "WeekText.h"

#include <fmt/format.h>

#include <algorithm>

namespace brackwater::inspect {

namespace {

constexpr RowKind kCalendars{"TBkndCal", 0x00020016, {10, 9}, 3};
constexpr std::uint16_t kNameElement = 1, kHoursElement = 8;
constexpr std::size_t kRowSize = 12;

/// Reads the block of working times of one calendar.
class HoursReader {
public:
    HoursReader(ByteView block, std::string name, Complaints& complaints)
        : _block(block), _name(std::move(name)), _complaints(complaints) {}

    void readInto(Calendar& calendar) {
        if (!_block.has(0, kWeekSize))
            return complain("a calendar's block of working times is cut off");
        calendar.week = week(0);
        _at = kWeekSize;
        for (std::uint32_t left = count(); left > 0 && !_failed; --left)
            readException(calendar);
        for (std::uint32_t left = count(); left > 0 && !_failed; --left)
            readWorkWeek(calendar);
    }

private:
    // Older blocks end without the counts.
    std::uint32_t count() {
        if (_failed || _at == _block.size())
            return 0;
        const auto value = _block.u32(_at);
        if (!value) {
            complain("a calendar's block of working times is cut off");
            return 0;
        }
        _at += 4;
        return *value;
    }

    [[nodiscard]] bool have(std::size_t size) {
        if (_block.has(_at, size))
            return true;
        complain("a calendar's block of working times is cut off");
        return false;
    }

    void readException(Calendar& calendar) {
        constexpr std::size_t size = 88, rangesAt = 14;
        if (!have(size))
            return;
        CalendarException exception{*_block.u16(_at), *_block.u16(_at + 2), ranges(_at + rangesAt), {}};
        exception.recurrence = recurrenceAt(_block.part(_at, size), [this](std::string_view what) { complain(what); });
        _at += size;
        exception.name = alignedName();
        beginWithItsFirstDay(exception);
        calendar.exceptions.push_back(std::move(exception));
    }

    // The file tells from when on the days recur, which need not be one of them.
    static void beginWithItsFirstDay(CalendarException& exception) {
        if (!exception.recurrence)
            return;
        const auto days = daysOf(*exception.recurrence, exception.firstDay, exception.lastDay);
        if (!days.empty())
            exception.firstDay = days.front();
    }

    void readWorkWeek(Calendar& calendar) {
        constexpr std::size_t size = kWeekSize + 12;
        if (!have(size))
            return;
        WorkWeek workWeek{*_block.u16(_at + kWeekSize), *_block.u16(_at + kWeekSize + 2), week(_at), {}};
        _at += size;
        workWeek.name = alignedName();
        calendar.workWeeks.push_back(std::move(workWeek));
    }

    // A length that counts the terminator, the text, and what fills it up to four bytes.
    std::string alignedName() {
        if (!have(4))
            return {};
        const std::uint32_t length = *_block.u32(_at);
        _at += 4;
        if (!have(std::size_t{length}))
            return {};
        std::string name = _block.part(_at, length).text16();
        _at += length;
        _at += std::min<std::size_t>(length % 4, _block.size() - _at);
        return name;
    }

    Week week(std::size_t at) {
        return weekAt(_block, at, [this](std::string_view what) { complain(what); });
    }

    std::vector<TimeRange> ranges(std::size_t at) {
        return rangesAt(_block, at, [this](std::string_view what) { complain(what); });
    }

    void complain(std::string_view what) {
        _failed = _failed || what.ends_with("cut off");
        _complaints.add(kCalendars.storage, what, _name);
    }

    ByteView _block;
    std::string _name;
    Complaints& _complaints;
    std::size_t _at = 0;
    bool _failed = false;
};

std::optional<std::uint32_t> positive(std::uint32_t value) {
    return value == 0 || value > 0x7FFFFFFF ? std::nullopt : std::optional(value);
}

void checkBases(const std::vector<Calendar>& calendars, Complaints& complaints) {
    std::map<std::uint32_t, const Calendar*> byId;
    for (const Calendar& calendar : calendars)
        byId.try_emplace(calendar.id, &calendar);
    for (const Calendar& calendar : calendars) {
        if (!calendar.baseId) {
            if (calendar.name.empty() && !calendar.resourceId)
                complaints.add(kCalendars.storage, "a base calendar without a name",
                               fmt::format("calendar {}", calendar.id));
            continue;
        }
        const auto base = byId.find(*calendar.baseId);
        if (base == byId.end())
            complaints.add(kCalendars.storage, "a calendar's base is missing: readers drop it",
                           fmt::format("calendar {} of base {}", calendar.id, *calendar.baseId));
        else if (base->second->name.empty())
            complaints.add(kCalendars.storage, "a calendar's base has no name: readers drop it",
                           fmt::format("calendar {} of base {}", calendar.id, *calendar.baseId));
    }
}

Calendar readCalendar(const RawRow& raw, const VarData& var, Complaints& complaints) {
    Calendar calendar;
    calendar.row = raw.number;
    calendar.id = *raw.first.u32(0);
    calendar.baseId = positive(*raw.first.u32(4));
    calendar.resourceId = *raw.first.u32(8);
    constexpr std::uint32_t noResource = 0xFFFFFFFF;
    if (calendar.resourceId == noResource)
        calendar.resourceId.reset();
    const VarData::Owned elements = var.elementsOf(calendar.id);
    calendar.name = var.find(elements, kNameElement).text16();
    calendar.guid = raw.second.guid(0);
    const ByteView hours = var.find(elements, kHoursElement);
    calendar.hasOwnHours = !hours.empty();
    if (calendar.hasOwnHours)
        HoursReader(hours, fmt::format("calendar {}", calendar.id), complaints).readInto(calendar);
    return calendar;
}

} // namespace

void decodeCalendars(const DecodeContext& context) {
    const RowStreams streams = readStreams(context, kCalendars.storage);
    Complaints& complaints = context.complaints();
    const VarData var(streams, kCalendars.storage, complaints);
    std::vector<Calendar>& calendars = context.out.calendars;
    for (const RawRow& raw : readRows(streams, kCalendars.records, kCalendars.storage, complaints)) {
        if (isHeaderRow(raw) || isDeleted(raw) || raw.first.empty())
            continue;
        if (raw.first.size() < kRowSize)
            complaints.add(kCalendars.storage, "a row is shorter than a calendar's", rowName(raw));
        else
            calendars.push_back(readCalendar(raw, var, complaints));
    }
    var.checkOwners(checkIds(calendars, &Calendar::id, kCalendars.storage, complaints), kCalendars.storage, complaints);
    checkBases(calendars, complaints);
}

} // namespace brackwater::inspect
