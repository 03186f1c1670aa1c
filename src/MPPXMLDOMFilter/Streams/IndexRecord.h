#pragma once

#include "MPPXMLDOMFilter/Buffers/MPPFixedMeta.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace brackwater {

/// Raises the failure of a record that has no bit for a row of the field map.
[[noreturn]] void failMapRow(std::size_t mapRow, std::size_t first, std::size_t count);

/// A record of "FixedMeta" or "Fixed2Meta": a bit for each row of the field map from `FirstRow` on, which tells whether
/// the record's row has the field in its bytes or its elements, or that a flag is set.
///
///     IndexRecord<47> record;
///     record.bits(TaskRow::FirstField, TaskRow::LastField);
///     record.bit(TaskRow::Milestone, task.milestone);
///     record.end(fixedMeta, startValue);
///
/// `Size` counts the start value and the row's offset too, which take the first 8 bytes.
template <std::size_t Size, std::size_t FirstRow = 0>
class IndexRecord {
public:
    static constexpr std::size_t kSize = Size;

    constexpr void bit(std::size_t mapRow, bool isSet = true) {
        const std::size_t place = mapRow - FirstRow; // huge for a row in front of the first
        if (place >= 8 * kSizeOfBits) [[unlikely]]
            failMapRow(mapRow, FirstRow, 8 * kSizeOfBits);
        _bits[place / 8] |= static_cast<std::uint8_t>(unsigned{isSet} << (place % 8));
    }
    /// Sets the bits of rows side by side, `last` included.
    constexpr void bits(std::size_t first, std::size_t last) {
        for (std::size_t mapRow = first; mapRow <= last; ++mapRow)
            bit(mapRow);
    }

    /// Appends the finished record.
    void end(MPPFixedMeta& meta, std::uint32_t startValue) const {
        meta.writeNextElementStartWithInt(startValue);
        meta.writeData(_bits);
    }

private:
    static constexpr std::size_t kSizeOfBits = Size - 8;

    std::array<std::uint8_t, kSizeOfBits> _bits{};
};

} // namespace brackwater
