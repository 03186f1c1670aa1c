#pragma once

#include "MPPXMLDOMFilter/Buffers/MPPData.h"
#include "Platform/Date.h"
#include "Platform/TimeZone.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace brackwater {

/// A date as it stands in a row: the low 16 bits are tenths of a minute, the high 16 bits are days.
struct EncodedDate {
    std::uint32_t bytes;
};

/// Encodes dates for rows, as MPPData::writeDate does. The same few instants fill many fields of a row, so the latest
/// encodings are kept.
class EncodedDates {
public:
    [[nodiscard]] EncodedDate operator()(const std::optional<Date>& date);

private:
    struct Entry {
        Date date;
        EncodedDate encoded;
    };
    static constexpr std::size_t kEntries = 16;

    [[nodiscard]] Entry entryOf(Date date) const { return {date, {MPPData::encodedDate(date, _systemZone)}}; }
    [[nodiscard]] std::array<Entry, kEntries> filledEntries() const;

    TimeZone _systemZone = TimeZone::system();
    std::array<Entry, kEntries> _entries = filledEntries();
};

} // namespace brackwater
