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

/// Encodes dates for rows as MPPData::writeDate does, in the system zone that held when this was made.
class DateEncoder {
public:
    [[nodiscard]] EncodedDate operator()(const std::optional<Date>& date) const {
        constexpr std::uint32_t kNoDate = 0xFFFFFFFF;
        return {date ? MPPData::encodedDate(*date, _systemZone) : kNoDate};
    }

private:
    TimeZone _systemZone = TimeZone::system();
};

} // namespace brackwater
