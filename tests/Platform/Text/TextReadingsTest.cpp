#include "Platform/Text/TextReadings.h"

#include "Platform/Values/Guid.h"
#include "Platform/Values/Saturating.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <set>

namespace brackwater {
namespace {

using Int64 = std::numeric_limits<std::int64_t>;
using Int32 = std::numeric_limits<std::int32_t>;

TEST(TextReadings, IntegersIgnoreLeadingBlanksAndTrailingText) {
    EXPECT_EQ(integerValue(" \t\r\n\v\f42 days"), 42);
    EXPECT_EQ(integerValue("-17.9"), -17);
    EXPECT_EQ(integerValue("+5"), 5);
    EXPECT_EQ(integerValue("007"), 7);
    for (const char* text : {"", "  ", "abc", "-", "- 1", "--1", ".5", "\u00A012"})
        EXPECT_EQ(integerValue(text), 0) << text;
}

TEST(TextReadings, OutOfRangeIntegersGiveTheNearestLimit) {
    EXPECT_EQ(integerValue("9223372036854775807"), Int64::max());
    EXPECT_EQ(integerValue("9223372036854775808"), Int64::max());
    EXPECT_EQ(integerValue("-9223372036854775807"), Int64::min() + 1);
    EXPECT_EQ(integerValue("-9223372036854775808"), Int64::min());
    EXPECT_EQ(integerValue("-9223372036854775809"), Int64::min());
    EXPECT_EQ(integerValue(std::string(100'000, '9')), Int64::max());
    EXPECT_EQ(intValue("2147483647"), Int32::max());
    EXPECT_EQ(intValue("2147483648"), Int32::max());
    EXPECT_EQ(intValue("-2147483649"), Int32::min());
}

TEST(TextReadings, ScannersReturnTheParsedLength) {
    const auto integer = scanInteger(" -12abc");
    ASSERT_TRUE(integer);
    EXPECT_EQ(integer->value, -12);
    EXPECT_EQ(integer->length, 4U);
    // The digits beyond the type's limit still belong to the number.
    const auto beyond = scanInt("99999999999 x");
    ASSERT_TRUE(beyond);
    EXPECT_EQ(beyond->value, Int32::max());
    EXPECT_EQ(beyond->length, 11U);
    const auto number = scanDouble(" +1.5e3e");
    ASSERT_TRUE(number);
    EXPECT_EQ(number->value, 1500.0);
    EXPECT_EQ(number->length, 7U);
    EXPECT_FALSE(scanInteger("abc"));
    EXPECT_FALSE(scanInt(" +"));
}

TEST(TextReadings, DoublesAreDecimalNumbersOnly) {
    EXPECT_EQ(doubleValue("0.1"), 0.1);
    EXPECT_EQ(doubleValue("-.5x"), -0.5);
    EXPECT_EQ(doubleValue("5."), 5.0);
    EXPECT_EQ(doubleValue("1e"), 1.0);
    EXPECT_EQ(doubleValue("1e+"), 1.0);
    EXPECT_EQ(doubleValue("0x10"), 0.0);
    EXPECT_EQ(doubleValue("1,5"), 1.0);
    EXPECT_TRUE(std::signbit(doubleValue("-0")));
    for (const char* text : {"", "inf", "nan", "-inf", "+-1", ".", "e5", "-.e1"})
        EXPECT_FALSE(scanDouble(text)) << text;
}

TEST(TextReadings, OutOfRangeDoublesAreInfiniteOrZero) {
    EXPECT_EQ(doubleValue("1e400"), HUGE_VAL);
    EXPECT_EQ(doubleValue("-1e400"), -HUGE_VAL);
    EXPECT_EQ(doubleValue("1e-400"), 0.0);
    EXPECT_EQ(doubleValue("1e99999999999999999999"), HUGE_VAL);
    EXPECT_EQ(doubleValue("1e-99999999999999999999"), 0.0);
    EXPECT_EQ(doubleValue(std::string(400, '7')), HUGE_VAL);
    EXPECT_EQ(doubleValue("0." + std::string(400, '0') + "1"), 0.0);
    EXPECT_EQ(doubleValue("0." + std::string(400, '0') + "1e900"), HUGE_VAL);
}

TEST(TextReadings, BooleansDependOnTheFirstSignificantCharacter) {
    for (const char* text : {"YES", "y", "True", "t", "1", "9", " +1", "-1", "0001", " \t0Y", "2x"})
        EXPECT_TRUE(boolValue(text)) << text;
    for (const char* text : {"", "NO", "false", "0", "000", "-", "--1", "on", "x1", "- 1"})
        EXPECT_FALSE(boolValue(text)) << text;
}

TEST(Saturating, TruncatesAndStaysWithinTheType) {
    EXPECT_EQ(saturatingCut<int>(2.9), 2);
    EXPECT_EQ(saturatingCut<int>(-2.9), -2);
    EXPECT_EQ(saturatingCut<int>(std::nan("")), 0);
    EXPECT_EQ(saturatingCut<std::int64_t>(9.3e18), Int64::max());
    EXPECT_EQ(saturatingCut<std::int64_t>(-HUGE_VAL), Int64::min());
    EXPECT_EQ(saturatingCut<std::int32_t>(2147483647.5), Int32::max());
    EXPECT_EQ(saturatingCut<std::int32_t>(-2147483648.5), Int32::min());
    EXPECT_EQ(saturatingCut<std::uint16_t>(-1.0), 0);
    EXPECT_EQ(saturatingCut<std::uint16_t>(65535.5), 65535);
    EXPECT_EQ(saturatingCut<std::uint64_t>(18446744073709551615.0), std::numeric_limits<std::uint64_t>::max());
}

TEST(Guid, RandomOnesAreDistinctAndOfVersion4) {
    std::set<std::string> texts;
    Guid::Bytes seen{};              // each bit that was ever set
    for (int i = 0; i < 1000; ++i) { // more than one fetch of random bytes
        const Guid guid = Guid::random();
        for (std::size_t place = 0; place < seen.size(); ++place)
            seen[place] |= guid.bytes()[place];
        EXPECT_EQ(guid.bytes()[6] & 0xF0, 0x40);
        EXPECT_EQ(guid.bytes()[8] & 0xC0, 0x80);
        texts.insert(guid.text());
    }
    EXPECT_EQ(texts.size(), 1000U);
    EXPECT_EQ(Guid(seen).text(), "ffffffff-ffff-4fff-bfff-ffffffffffff");
}

TEST(Guid, BytesAreInTheOrderOfTheText) {
    const Guid guid({0x01, 0x23, 0x45, 0x67, 0x89, 0xAB, 0xCD, 0xEF, 0x01, 0x23, 0x45, 0x67, 0x89, 0xAB, 0xCD, 0xEF});
    EXPECT_EQ(guid.text(), "01234567-89ab-cdef-0123-456789abcdef");
    EXPECT_EQ(Guid().text(), "00000000-0000-0000-0000-000000000000");
}

} // namespace
} // namespace brackwater
