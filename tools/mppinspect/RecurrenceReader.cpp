#include "RecurrenceReader.h"

namespace brackwater::inspect {

namespace {

using Kind = Recurrence::Kind;

constexpr std::size_t kOccurrencesAt = 4, kFormAt = 72, kFirstAt = 76, kSecondAt = 77, kEveryAt = 78;
constexpr unsigned kEveryDay = 1, kYearlyByDay = 2, kYearlyByWeekday = 3, kMonthlyByDay = 4, kMonthlyByWeekday = 5,
                   kWeekly = 6, kDaily = 7;
constexpr unsigned kSunday = 3; ///< weekdays of months and years count from here

unsigned weekdayBit(unsigned weekday) {
    return weekday >= kSunday && weekday < kSunday + 7 ? 1U << (weekday - kSunday) : 0;
}

Recurrence read(unsigned form, ByteView entry) {
    const unsigned first = *entry.u8(kFirstAt), second = *entry.u8(kSecondAt), every = *entry.u16(kEveryAt);
    Recurrence recurrence;
    recurrence.occurrences = *entry.u16(kOccurrencesAt);
    switch (form) {
    case kDaily:
        recurrence.kind = Kind::Daily;
        recurrence.every = *entry.u16(kFirstAt);
        break;
    case kWeekly:
        recurrence.kind = Kind::Weekly;
        recurrence.every = every;
        recurrence.weekdays = first & 0x7F;
        break;
    case kMonthlyByWeekday:
        recurrence.kind = Kind::MonthlyByWeekday;
        recurrence.every = every;
        recurrence.ordinal = first + 1;
        recurrence.weekdays = weekdayBit(second);
        break;
    case kMonthlyByDay:
        recurrence.kind = Kind::MonthlyByDay;
        recurrence.every = every;
        recurrence.day = first;
        break;
    case kYearlyByWeekday:
        recurrence.kind = Kind::YearlyByWeekday;
        recurrence.month = first + 1;
        recurrence.ordinal = second + 1;
        recurrence.weekdays = weekdayBit(*entry.u8(kEveryAt));
        break;
    case kYearlyByDay:
    default:
        recurrence.kind = Kind::YearlyByDay;
        recurrence.month = first + 1;
        recurrence.day = second;
    }
    return recurrence;
}

bool isSound(const Recurrence& recurrence) {
    const bool hasWeekday = recurrence.weekdays != 0, hasOrdinal = recurrence.ordinal >= 1 && recurrence.ordinal <= 5;
    const bool hasDay = recurrence.day >= 1 && recurrence.day <= 31;
    const bool hasMonth = recurrence.month >= 1 && recurrence.month <= 12;
    if (recurrence.every == 0)
        return false;
    switch (recurrence.kind) {
    case Kind::Daily:
        return true;
    case Kind::Weekly:
        return hasWeekday;
    case Kind::MonthlyByWeekday:
        return hasWeekday && hasOrdinal;
    case Kind::MonthlyByDay:
        return hasDay;
    case Kind::YearlyByWeekday:
        return hasWeekday && hasOrdinal && hasMonth;
    case Kind::YearlyByDay:
        return hasDay && hasMonth;
    }
    return false;
}

} // namespace

std::optional<Recurrence> recurrenceAt(ByteView entry, const std::function<void(std::string_view)>& complain) {
    const std::uint32_t form = *entry.u32(kFormAt);
    if (form <= kEveryDay)
        return std::nullopt;
    if (form <= kDaily)
        if (const Recurrence recurrence = read(form, entry); isSound(recurrence))
            return recurrence;
    complain("how an exception recurs is not understood: it is taken for every day");
    return std::nullopt;
}

} // namespace brackwater::inspect
