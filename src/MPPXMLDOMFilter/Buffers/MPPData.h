#pragma once

#include "Platform/Time/Date.h"
#include "Platform/Values/Guid.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace brackwater {

class TimeZone;

/// How a text is encoded in a stream. The numbers are the platform's.
enum class MPPEncoding {
    ASCII = 1,    ///< one byte a character
    Unicode = 10, ///< UTF-16, little-endian, no byte-order mark
};

/// A growing buffer of a stream's bytes with the primitive encodings of the format, all little-endian. Bytes leave it
/// by `clearBuffer` once they are written out; offsets that outlive that are counted over the whole stream.
class MPPData {
public:
    MPPData();
    virtual ~MPPData() = default;
    MPPData(const MPPData&) = delete;
    MPPData& operator=(const MPPData&) = delete;

    void writeInteger(std::uint32_t value);
    void write2ByteInteger(std::uint16_t value);
    void write1ByteInteger(std::uint8_t value);
    /// IEEE 754 binary64.
    void writeDouble(double value);
    void writeZeroesBlockOfSize(std::size_t count);
    void writeData(std::span<const std::uint8_t> bytes);
    /// The 16 bytes as they stand; zeros for null.
    void writeGUID(const Guid* guid);
    /// The encoded text and two zero bytes. A text (UTF-8) that cannot be converted contributes no bytes.
    void writeString(std::string_view text, MPPEncoding encoding);
    /// The text in a fixed RTF frame, unescaped, closed by one zero byte.
    void writeRtfString(std::string_view text, MPPEncoding encoding);
    /// RTF that is complete, closed by one zero byte.
    void writeRtf(std::string_view rtf);
    /// Seconds in; 4 bytes in tenths of a minute. `units` is not consulted.
    void writeDuration(double seconds, int units);
    /// 4 bytes: tenths of a minute of the day, then days since 1983-12-31, of the wall clock of the system zone; all
    /// ones for no date.
    void writeDate(const std::optional<Date>& date);
    /// The 4 bytes of a date as a little-endian integer, for callers that keep the system zone.
    [[nodiscard]] static std::uint32_t encodedDate(Date date, const TimeZone& systemZone);
    /// 2 bytes: the days alone.
    void writeDaysFromDate(const std::optional<Date>& date);
    /// Replace bytes at an offset counted from the start of the present buffer. Raises NSRangeException past its end.
    void writeIntegerAtOffset(std::uint32_t value, std::size_t offset);
    void write2ByteIntegerAtOffset(std::uint16_t value, std::size_t offset);

    [[nodiscard]] std::span<const std::uint8_t> data() const noexcept { return {_bytes.data(), _size}; }
    [[nodiscard]] std::size_t dataSize() const noexcept { return _size; }
    /// Bytes of the whole stream so far, those already cleared included.
    [[nodiscard]] std::uint64_t cumulativeDataSize() const noexcept { return _bytesCleared + _size; }

    virtual void clearBuffer();
    /// Empties the buffer without counting its bytes as written.
    void resetData();

private:
    /// Room for `count` bytes at the end, which the caller fills.
    std::uint8_t* append(std::size_t count) {
        if (_bytes.size() - _size < count) [[unlikely]]
            makeRoom(count);
        std::uint8_t* place = _bytes.data() + _size;
        _size += count;
        return place;
    }
    void makeRoom(std::size_t count);
    template <typename Unsigned>
    void appendInteger(Unsigned value);
    template <typename Unsigned>
    void replace(Unsigned value, std::size_t offset);
    void appendText(std::string_view text, MPPEncoding encoding);

    std::vector<std::uint8_t> _bytes; ///< what is written and some room behind it, so that short fields are cheap
    std::size_t _size = 0;            ///< of what is written
    std::uint64_t _bytesCleared = 0;
};

} // namespace brackwater
