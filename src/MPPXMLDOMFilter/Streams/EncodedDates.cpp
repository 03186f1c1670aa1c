#include "MPPXMLDOMFilter/Streams/EncodedDates.h"

#include <bit>

namespace brackwater {

namespace {

constexpr EncodedDate kNoDate{0xFFFFFFFF};

// Spreads instants that differ by whole minutes, hours or days over 16 places.
std::size_t placeOf(Date date) {
    constexpr std::uint64_t kGoldenRatio = 0x9E3779B97F4A7C15;
    return static_cast<std::size_t>((std::bit_cast<std::uint64_t>(date.secondsSince1970) * kGoldenRatio) >> 60);
}

} // namespace

// Every place holds a true encoding from the start, so that no place needs a mark of being empty.
std::array<EncodedDates::Entry, EncodedDates::kEntries> EncodedDates::filledEntries() const {
    std::array<Entry, kEntries> entries{};
    entries.fill(entryOf(Date{}));
    return entries;
}

EncodedDate EncodedDates::operator()(const std::optional<Date>& date) {
    if (!date)
        return kNoDate;
    Entry& entry = _entries[placeOf(*date)];
    if (entry.date != *date)
        entry = entryOf(*date);
    return entry.encoded;
}

} // namespace brackwater
