#include "MPPXMLDOMFilter/Buffers/MPPData.h"

#include "Platform/Text/TextEncoding.h"
#include "Platform/Time/GregorianCalendar.h"
#include "Platform/Values/Exception.h"
#include "Platform/Values/Saturating.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstring>
#include <tuple>

namespace brackwater {

namespace {

constexpr std::size_t kInitialCapacity = 512;
/// Bytes that the buffer grows by beyond what is asked for.
constexpr std::size_t kRoom = 512;
constexpr std::uint32_t kNullDate = 0xFFFFFFFF;
constexpr std::uint16_t kNullDay = 0xFFFF;

constexpr std::int64_t kSecondsPerDay = 86400;
/// 1983-12-31T00:00:00Z, day 0 of the format, in seconds since 1970.
constexpr std::int64_t kDayZero = 441676800;
/// Seconds beyond which a date is taken for this bound, so that no arithmetic on it overflows; some 9 billion years.
constexpr std::int64_t kFarthestSecond = std::int64_t{1} << 58;

constexpr std::int64_t floorDivide(std::int64_t dividend, std::int64_t divisor) noexcept {
    return dividend / divisor - (dividend % divisor < 0 ? 1 : 0);
}

/// Bytes of an integer, little-endian, whatever the machine's order.
template <typename Unsigned>
constexpr std::array<std::uint8_t, sizeof(Unsigned)> littleEndian(Unsigned value) noexcept {
    using Bytes = std::array<std::uint8_t, sizeof(Unsigned)>;
    if constexpr (std::endian::native == std::endian::little)
        return std::bit_cast<Bytes>(value);
    Bytes bytes{};
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<std::uint8_t>(value >> (8 * i) & 0xFF);
    return bytes;
}

/// Seconds from day 0 to the date, both read on the wall clock of the system zone.
std::int64_t wallSecondsSinceDayZero(Date date, const TimeZone& systemZone) {
    const auto second =
        std::clamp(saturatingCut<std::int64_t>(std::floor(date.secondsSince1970)), -kFarthestSecond, kFarthestSecond);
    return second + systemZone.secondsFromGMT(date) - kDayZero;
}

/// Days since day 0, of which a stream holds the low 16 bits.
std::uint16_t dayCount(std::int64_t wallSeconds) noexcept {
    return static_cast<std::uint16_t>(floorDivide(wallSeconds, kSecondsPerDay) & 0xFFFF);
}

} // namespace

MPPData::MPPData() { _bytes.reserve(kInitialCapacity); }

void MPPData::makeRoom(std::size_t count) { _bytes.resize(_size + count + kRoom); }

template <typename Unsigned>
void MPPData::appendInteger(Unsigned value) {
    const auto bytes = littleEndian(value);
    std::memcpy(append(bytes.size()), bytes.data(), bytes.size());
}

void MPPData::appendText(std::string_view text, MPPEncoding encoding) {
    _bytes.resize(_size);
    // A text that cannot be converted leaves no bytes.
    std::ignore = encoding == MPPEncoding::Unicode ? appendAsUTF16LE(_bytes, text) : appendAsASCII(_bytes, text);
    _size = _bytes.size();
}

void MPPData::writeInteger(std::uint32_t value) { appendInteger(value); }

void MPPData::write2ByteInteger(std::uint16_t value) { appendInteger(value); }

void MPPData::write1ByteInteger(std::uint8_t value) { appendInteger(value); }

void MPPData::writeDouble(double value) { appendInteger(std::bit_cast<std::uint64_t>(value)); }

void MPPData::writeZeroesBlockOfSize(std::size_t count) { std::fill_n(append(count), count, std::uint8_t{0}); }

void MPPData::writeData(std::span<const std::uint8_t> bytes) {
    std::copy(bytes.begin(), bytes.end(), append(bytes.size()));
}

void MPPData::writeGUID(const Guid* guid) { writeData(guid != nullptr ? guid->bytes() : Guid().bytes()); }

void MPPData::writeString(std::string_view text, MPPEncoding encoding) {
    appendText(text, encoding);
    write2ByteInteger(0);
}

void MPPData::writeRtfString(std::string_view text, MPPEncoding encoding) {
    const auto writeText = [this, encoding](std::string_view part) { appendText(part, encoding); };
    // A carriage return is one byte, whatever the encoding; the line feed after it is part of the text that follows.
    const auto writeCarriageReturn = [this] { write1ByteInteger('\r'); };

    writeText(R"({\rtf1\ansi\ansicpg1251\deff0\deflang1049{\fonttbl{\f0\fswiss\fprq2\fcharset0 Arial;})"
              R"({\f1\fswiss\fprq2\fcharset204{\*\fname Arial;}Arial CYR;}})");
    writeCarriageReturn();
    writeText("\n"
              R"({\*\generator Riched2012.0.6413.1000;}\viewkind4\uc1)");
    writeCarriageReturn();
    writeText("\n"
              R"(\pard\f0\fs16\lang1033 )");
    writeText(text);
    writeText(R"(\f1\lang1049\par)");
    writeCarriageReturn();
    writeText("\n}");
    writeCarriageReturn();
    writeText("\n");
    write1ByteInteger(0);
}

void MPPData::writeRtf(std::string_view rtf) {
    std::copy(rtf.begin(), rtf.end(), append(rtf.size()));
    write1ByteInteger(0);
}

void MPPData::writeDuration(double seconds, int /*units*/) {
    writeInteger(static_cast<std::uint32_t>(saturatingCut<std::int32_t>(seconds / 6.0)));
}

void MPPData::writeDate(const std::optional<Date>& date) {
    writeInteger(date ? encodedDate(*date, TimeZone::system()) : kNullDate);
}

std::uint32_t MPPData::encodedDate(Date date, const TimeZone& systemZone) {
    const std::int64_t seconds = wallSecondsSinceDayZero(date, systemZone);
    const std::uint16_t days = dayCount(seconds);
    // The days that are taken off are those that the stream holds: outside the format's range not all of them.
    const std::int64_t tenths = (seconds - days * kSecondsPerDay) * 10 / 60;
    return static_cast<std::uint32_t>(tenths & 0xFFFF) | static_cast<std::uint32_t>(days) << 16;
}

void MPPData::writeDaysFromDate(const std::optional<Date>& date) {
    write2ByteInteger(date ? dayCount(wallSecondsSinceDayZero(*date, TimeZone::system())) : kNullDay);
}

template <typename Unsigned>
void MPPData::replace(Unsigned value, std::size_t offset) {
    const auto bytes = littleEndian(value);
    if (offset > _size || _size - offset < bytes.size())
        throw Exception(kRangeException, "Attempt to write to data at wrong offset");
    std::copy(bytes.begin(), bytes.end(), _bytes.data() + offset);
}

void MPPData::writeIntegerAtOffset(std::uint32_t value, std::size_t offset) { replace(value, offset); }

void MPPData::write2ByteIntegerAtOffset(std::uint16_t value, std::size_t offset) { replace(value, offset); }

void MPPData::clearBuffer() {
    _bytesCleared += _size;
    _size = 0;
}

void MPPData::resetData() { _size = 0; }

} // namespace brackwater
