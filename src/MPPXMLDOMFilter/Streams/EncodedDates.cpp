#include "MPPXMLDOMFilter/Streams/EncodedDates.h"

#include <bit>

namespace brackwater {

namespace {

constexpr EncodedDate kNoDate{0xFFFFFFFF};

// Spreads instants that differ by whole minutes, hours or days over a table of 2^bits places.
std::size_t placeOf(Date date, std::size_t bits) {
    constexpr std::uint64_t kGoldenRatio = 0x9E3779B97F4A7C15;
    return static_cast<std::size_t>((std::bit_cast<std::uint64_t>(date.secondsSince1970) * kGoldenRatio) >>
                                    (64 - bits));
}

} // namespace

EncodedDate EncodedDates::operator()(const std::optional<Date>& date) {
    if (!date)
        return kNoDate;
    Entry& entry = _entries[placeOf(*date, kEntryBits)];
    if (!entry.used || entry.date != *date)
        entry = {*date, encode(*date), true};
    return {entry.bytes};
}

std::uint32_t EncodedDates::encode(Date date) {
    _scratch.resetData();
    _scratch.writeDate(date);
    std::uint32_t bytes = 0;
    for (std::size_t i = 0; i < sizeof bytes; ++i)
        bytes |= static_cast<std::uint32_t>(_scratch.data()[i]) << (8 * i);
    return bytes;
}

} // namespace brackwater
