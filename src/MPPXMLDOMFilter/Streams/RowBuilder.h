#pragma once

#include "MPPXMLDOMFilter/Buffers/MPPOffsetMarkedData.h"
#include "MPPXMLDOMFilter/Streams/DateEncoder.h"
#include "Platform/Values/Guid.h"
#include "Platform/Values/Saturating.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

namespace brackwater {

/// Raises the failure of a row whose fields do not stand where they should.
[[noreturn]] void failRowOffset(std::size_t expected, std::size_t reached, std::size_t size);

/// A row of fixed size, composed field by field in the order of the format's table:
///
///     RowBuilder<20> row;
///     row.at(0).integer(link.ID);
///     row.at(4).integer(task1ID);
///     ...
///     row.end(data);
///
/// `at` states the field's offset and fails when the fields so far do not reach exactly to it; `end` fails when they do
/// not fill the row, and appends it. All numbers are little-endian.
template <std::size_t Size>
class RowBuilder {
public:
    RowBuilder& at(std::size_t offset) {
        if (offset != _reached) [[unlikely]]
            failRowOffset(offset, _reached, Size);
        return *this;
    }
    void byte(std::uint8_t value) { store(value); }
    void word(std::uint16_t value) { store(value); }
    void integer(std::uint32_t value) { store(value); }
    /// An ID or another number of the records, of which the format holds the low 32 or 16 bits.
    void lowInteger(std::uint64_t value) { store(static_cast<std::uint32_t>(value)); }
    void lowWord(std::uint64_t value) { store(static_cast<std::uint16_t>(value)); }
    void real(double value) { store(std::bit_cast<std::uint64_t>(value)); }
    /// Seconds in; tenths of a minute in the row.
    void duration(double seconds) { integer(std::bit_cast<std::uint32_t>(saturatingCut<std::int32_t>(seconds / 6.0))); }
    void date(EncodedDate date) { integer(date.bytes); }
    /// The days alone.
    void days(EncodedDate date) { store(static_cast<std::uint16_t>(date.bytes >> 16)); }
    void guid(const Guid& guid) { bytes(guid.bytes()); }
    void zeroes(std::size_t count) { static_cast<void>(reserve(count)); }
    void bytes(std::span<const std::uint8_t> values) {
        std::copy(values.begin(), values.end(), reserve(values.size()));
    }

    /// A finished row of its own.
    template <std::size_t InnerSize>
    void row(const RowBuilder<InnerSize>& inner) {
        bytes(inner.finished());
    }

    /// The bytes of the finished row.
    [[nodiscard]] std::span<const std::uint8_t> finished() const {
        if (_reached != Size) [[unlikely]]
            failRowOffset(Size, _reached, Size);
        return _bytes;
    }
    /// Appends the finished row.
    void end(MPPData& data) const { data.writeData(finished()); }
    /// The same, the row being an element of its own.
    void endElement(MPPOffsetMarkedData& data) const {
        data.startNewElement();
        end(data);
        data.closeCurrentElement();
    }

private:
    std::uint8_t* reserve(std::size_t count) {
        if (count > Size - _reached) [[unlikely]]
            failRowOffset(_reached + count, _reached, Size);
        std::uint8_t* field = _bytes.data() + _reached;
        _reached += count;
        return field;
    }
    template <typename Unsigned>
    void store(Unsigned value) {
        std::uint8_t* field = reserve(sizeof value);
        if constexpr (std::endian::native == std::endian::little)
            std::memcpy(field, &value, sizeof value);
        else
            for (std::size_t i = 0; i < sizeof value; ++i)
                field[i] = static_cast<std::uint8_t>(value >> (8 * i));
    }

    std::array<std::uint8_t, Size> _bytes{};
    std::size_t _reached = 0;
};

} // namespace brackwater
