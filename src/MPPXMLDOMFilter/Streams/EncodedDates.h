#pragma once

#include "MPPXMLDOMFilter/Buffers/MPPData.h"
#include "Platform/Date.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace brackwater {

/// A date as it stands in a row: the low 16 bits are tenths of a minute, the high 16 bits are days.
struct EncodedDate {
    std::uint32_t bytes;
};

/// Encodes dates for rows, as MPPData::writeDate does. The same few instants fill many fields of neighbouring rows, so
/// the latest encodings are kept.
class EncodedDates {
public:
    [[nodiscard]] EncodedDate operator()(const std::optional<Date>& date);

private:
    struct Entry {
        Date date;
        std::uint32_t bytes = 0;
        bool used = false;
    };
    static constexpr std::size_t kEntryBits = 9;

    [[nodiscard]] std::uint32_t encode(Date date);

    std::array<Entry, std::size_t{1} << kEntryBits> _entries{};
    MPPData _scratch;
};

} // namespace brackwater
