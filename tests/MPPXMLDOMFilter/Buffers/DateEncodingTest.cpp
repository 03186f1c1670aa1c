#include "BytesOf.h"

#include "MPPXMLDOMFilter/Buffers/MPPData.h"
#include "support/ScopedTimeZone.h"

#include <gtest/gtest.h>

#include <limits>

namespace brackwater::test {
namespace {

/// The two parts of a date as the stream holds them.
struct Parts {
    unsigned tenths;
    unsigned days;
    friend bool operator==(const Parts&, const Parts&) = default;
    friend void PrintTo(const Parts& parts, std::ostream* out) {
        *out << "tenths " << parts.tenths << ", days " << parts.days;
    }
};

Parts partsOf(double secondsSince1970) {
    MPPData data;
    data.writeDate(Date{secondsSince1970});
    data.writeDaysFromDate(Date{secondsSince1970});
    const Bytes bytes = bytesOf(data);
    EXPECT_EQ(bytes.size(), 6U);
    EXPECT_EQ(bytes[2], bytes[4]); // the days alone are those of the date
    EXPECT_EQ(bytes[3], bytes[5]);
    return {bytes[0] | unsigned{bytes[1]} << 8, bytes[2] | unsigned{bytes[3]} << 8};
}

constexpr double kDay = 86400.0;
constexpr double kDayZero = 441676800.0; // 1983-12-31T00:00:00Z

class Dates : public testing::Test {
    ScopedTimeZone _utc{"UTC"};
};

TEST_F(Dates, TimeComesFirstThenTheDays) {
    EXPECT_EQ(partsOf(kDayZero), (Parts{0, 0}));
    EXPECT_EQ(partsOf(kDayZero + kDay + 8 * 3600), (Parts{4800, 1}));
    EXPECT_EQ(partsOf(1704067200.0), (Parts{0, 14611})); // 2024-01-01
}

TEST_F(Dates, NullIsAllOnes) {
    MPPData data;
    data.writeDate(std::nullopt);
    data.writeDaysFromDate(std::nullopt);
    EXPECT_EQ(bytesOf(data), Bytes(6, 0xFF));
}

TEST_F(Dates, SecondsAreCutToTenthsOfAMinute) {
    EXPECT_EQ(partsOf(kDayZero + 5), (Parts{0, 0}));
    EXPECT_EQ(partsOf(kDayZero + 6), (Parts{1, 0}));
    EXPECT_EQ(partsOf(kDayZero + kDay - 1), (Parts{14399, 0}));
}

TEST_F(Dates, FractionsOfASecondAreDropped) {
    EXPECT_EQ(partsOf(kDayZero + 5.9999), (Parts{0, 0}));
    EXPECT_EQ(partsOf(kDayZero + kDay - 0.001), (Parts{14399, 0}));
}

TEST_F(Dates, DaysOutsideTheRangeKeepTheirLowBits) {
    EXPECT_EQ(partsOf(kDayZero + 65534 * kDay + 3600), (Parts{600, 65534}));
    EXPECT_EQ(partsOf(kDayZero + 65537 * kDay + 3600), (Parts{600, 1}));
    EXPECT_EQ(partsOf(kDayZero - kDay), (Parts{0, 65535}));
    // 65535 days are taken off a negative second count and the rest is cut towards zero, so 3 seconds give one tenth.
    EXPECT_EQ(partsOf(kDayZero - kDay + 3), (Parts{1, 65535}));
}

TEST_F(Dates, NoInstantOverflows) {
    for (const double instant : {1e18, -1e18, 1e300, -1e300, std::numeric_limits<double>::infinity(),
                                 -std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()})
        partsOf(instant);
}

TEST(DatesInAZone, KeepTheWallClockThroughDaylightTime) {
    const ScopedTimeZone berlin("Europe/Berlin");
    EXPECT_EQ(partsOf(1704092400.0), (Parts{4800, 14611})); // 2024-01-01 08:00 +0100
    EXPECT_EQ(partsOf(1719813600.0), (Parts{4800, 14793})); // 2024-07-01 08:00 +0200
}

TEST(DatesInAZone, TheDayIsThatOfTheWallClock) {
    const ScopedTimeZone auckland("Pacific/Auckland");
    EXPECT_EQ(partsOf(1704067199.0), (Parts{7799, 14611})); // 2024-01-01 12:59:59 there, still 2023 in Greenwich
    const ScopedTimeZone honolulu("Pacific/Honolulu");
    EXPECT_EQ(partsOf(1704067200.0), (Parts{8400, 14610})); // 2023-12-31 14:00 there
}

} // namespace
} // namespace brackwater::test
