#pragma once

#include "MPPXMLDOMFilter/Buffers/MPPData.h"
#include "Platform/Time/Date.h"
#include "Platform/Time/TimeZone.h"

#include <cstdint>
#include <optional>

namespace brackwater {

/// A date as it stands in a row: the low 16 bits are tenths of a minute, the high 16 bits are days.
struct EncodedDate {
    std::uint32_t bytes;
};

/// Encodes dates for rows as MPPData::writeDate does, in the system zone that held when this was made. The same instant
/// often fills several fields in a row, so the latest encoding is kept.
class DateEncoder {
public:
    [[nodiscard]] EncodedDate operator()(const std::optional<Date>& date) {
        constexpr EncodedDate kNoDate{0xFFFFFFFF};
        if (!date)
            return kNoDate;
        if (*date != _latest) {
            _latestEncoded.bytes = MPPData::encodedDate(*date, _systemZone);
            _latest = *date;
        }
        return _latestEncoded;
    }

private:
    TimeZone _systemZone = TimeZone::system();
    Date _latest;
    EncodedDate _latestEncoded{MPPData::encodedDate(_latest, _systemZone)};
};

} // namespace brackwater
