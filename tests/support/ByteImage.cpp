#include "support/ByteImage.h"

#include <fmt/format.h>

#include <algorithm>
#include <bit>

namespace brackwater::test {

namespace {

std::uint64_t numberAt(const Bytes& stream, std::size_t offset, std::size_t count) {
    std::uint64_t value = 0;
    const Bytes bytes = slice(stream, offset, count);
    for (std::size_t i = 0; i < bytes.size(); ++i)
        value |= static_cast<std::uint64_t>(bytes[i]) << (8 * i);
    return value;
}

} // namespace

ByteImage& ByteImage::put(std::size_t offset, std::uint64_t value, std::size_t count) {
    if (_bytes.size() < offset + count)
        _bytes.resize(offset + count);
    for (std::size_t i = 0; i < count; ++i)
        _bytes[offset + i] = static_cast<std::uint8_t>(value >> (8 * i));
    return *this;
}

ByteImage& ByteImage::real(std::size_t offset, double value) {
    return put(offset, std::bit_cast<std::uint64_t>(value), 8);
}

ByteImage& ByteImage::guid(std::size_t offset, const Guid& guid) {
    for (std::size_t i = 0; i < guid.bytes().size(); ++i)
        byte(offset + i, guid.bytes()[i]);
    return *this;
}

ByteImage& ByteImage::text(std::size_t offset, std::string_view text) {
    for (std::size_t i = 0; i < text.size(); ++i)
        word(offset + 2 * i, static_cast<std::uint8_t>(text[i]));
    return word(offset + 2 * text.size(), 0);
}

Bytes slice(const Bytes& stream, std::size_t offset, std::size_t size) {
    if (offset > stream.size() || stream.size() - offset < size) {
        ADD_FAILURE() << "no " << size << " bytes at " << offset << " in a stream of " << stream.size();
        return {};
    }
    const auto begin = stream.begin() + static_cast<std::ptrdiff_t>(offset);
    return {begin, begin + static_cast<std::ptrdiff_t>(size)};
}

std::uint16_t wordAt(const Bytes& stream, std::size_t offset) {
    return static_cast<std::uint16_t>(numberAt(stream, offset, 2));
}

std::uint32_t integerAt(const Bytes& stream, std::size_t offset) {
    return static_cast<std::uint32_t>(numberAt(stream, offset, 4));
}

double realAt(const Bytes& stream, std::size_t offset) { return std::bit_cast<double>(numberAt(stream, offset, 8)); }

testing::AssertionResult sameBytes(const Bytes& actual, const Bytes& expected) {
    std::string differences;
    if (actual.size() != expected.size())
        differences += fmt::format(" {} bytes instead of {};", actual.size(), expected.size());
    for (std::size_t i = 0; i < std::min(actual.size(), expected.size()); ++i)
        if (actual[i] != expected[i])
            differences += fmt::format(" at {}: {:02X} instead of {:02X};", i, actual[i], expected[i]);
    if (differences.empty())
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << differences;
}

} // namespace brackwater::test
