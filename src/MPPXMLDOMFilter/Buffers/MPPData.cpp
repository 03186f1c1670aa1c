#include "MPPXMLDOMFilter/Buffers/MPPData.h"

#include "Platform/Exception.h"
#include "Platform/GregorianCalendar.h"
#include "Platform/Saturating.h"
#include "Platform/TextEncoding.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>

namespace brackwater {

namespace {

constexpr std::size_t kInitialCapacity = 512;
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
    std::array<std::uint8_t, sizeof(Unsigned)> bytes{};
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<std::uint8_t>(value >> (8 * i) & 0xFF);
    return bytes;
}

template <typename Unsigned>
void append(std::vector<std::uint8_t>& data, Unsigned value) {
    // Byte by byte is several times quicker than the insertion of a range as short as these.
    for (const std::uint8_t byte : littleEndian(value))
        data.push_back(byte);
}

template <typename Unsigned>
void replace(std::vector<std::uint8_t>& data, Unsigned value, std::size_t offset) {
    const auto bytes = littleEndian(value);
    if (offset > data.size() || data.size() - offset < bytes.size())
        throw Exception(kRangeException, "Attempt to write to data at wrong offset");
    std::copy(bytes.begin(), bytes.end(), data.begin() + static_cast<std::ptrdiff_t>(offset));
}

/// The encoded text without a terminator; no bytes for a text that cannot be converted.
void appendText(std::vector<std::uint8_t>& data, std::string_view text, MPPEncoding encoding) {
    const bool converted = encoding == MPPEncoding::Unicode ? appendAsUTF16LE(data, text) : appendAsASCII(data, text);
    static_cast<void>(converted);
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

MPPData::MPPData() { _data.reserve(kInitialCapacity); }

void MPPData::writeInteger(std::uint32_t value) { append(_data, value); }

void MPPData::write2ByteInteger(std::uint16_t value) { append(_data, value); }

void MPPData::write1ByteInteger(std::uint8_t value) { _data.push_back(value); }

void MPPData::writeDouble(double value) { append(_data, std::bit_cast<std::uint64_t>(value)); }

void MPPData::writeZeroesBlockOfSize(std::size_t count) { _data.insert(_data.end(), count, 0); }

void MPPData::writeData(std::span<const std::uint8_t> bytes) { _data.insert(_data.end(), bytes.begin(), bytes.end()); }

void MPPData::writeGUID(const Guid* guid) { writeData(guid != nullptr ? guid->bytes() : Guid().bytes()); }

void MPPData::writeString(std::string_view text, MPPEncoding encoding) {
    appendText(_data, text, encoding);
    write2ByteInteger(0);
}

void MPPData::writeRtfString(std::string_view text, MPPEncoding encoding) {
    const auto writeText = [this, encoding](std::string_view part) { appendText(_data, part, encoding); };
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

void MPPData::writeIntegerAtOffset(std::uint32_t value, std::size_t offset) { replace(_data, value, offset); }

void MPPData::write2ByteIntegerAtOffset(std::uint16_t value, std::size_t offset) { replace(_data, value, offset); }

void MPPData::clearBuffer() {
    _bytesCleared += _data.size();
    _data.clear();
}

void MPPData::resetData() { _data.clear(); }

} // namespace brackwater
