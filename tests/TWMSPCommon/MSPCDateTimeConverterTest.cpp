#include "TWMSPCommon/MSPCDateTimeConverter.h"

#include "Platform/Time/GregorianCalendar.h"
#include "support/ExpectException.h"
#include "support/LogCapture.h"
#include "support/ScopedTimeZone.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace brackwater {
namespace {

using Converter = MSPCDateTimeConverter;

Date utc(const CivilTime& time) { return GregorianCalendar::dateFromFields(time, 0).value(); }

/// All tests run in Berlin, since the zone is captured once per process.
class DateTimeConverter : public testing::Test {
protected:
    static void SetUpTestSuite() {
        const test::ScopedTimeZone zone("Europe/Berlin");
        const test::LogCapture log;
        Converter::initialize();
        Converter::initialize();
        firstLines = log.lines();
    }

    static inline std::vector<std::string> firstLines;
    test::ScopedTimeZone zone{"Europe/Berlin"};
};

TEST_F(DateTimeConverter, LogsTheZoneOnce) {
    EXPECT_EQ(firstLines, std::vector<std::string>{"Running in Europe/Berlin"});
}

TEST_F(DateTimeConverter, ParsesSourceTextsWithEveryFormOfOffset) {
    const Date seven = utc({2012, 6, 1, 7});
    for (const char* text :
         {"2012-06-01T07:00:00Z", "2012-06-01T08:00:00+01", "2012-06-01T08:00:00+01:00", "2012-06-01T08:00:00+01:00:00",
          "2012-06-01T08:00:00+0100", "\n 2012-06-01T07:00:00Z\t", "2012-06-01T03:30:00-03:30"})
        EXPECT_EQ(Converter::mppFromZelbDateTime(text), seven) << text;
    EXPECT_EQ(Converter::mppFromZelbDateTime("  2012-06-01\n"), utc({2012, 5, 31, 22})) << "the local day begins";
    EXPECT_EQ(Converter::mppFromZelbDateOnly("2012-06-01"), utc({2012, 5, 31, 22}));
}

TEST_F(DateTimeConverter, ParsesOnlyWholeTexts) {
    for (const char* text : {"", " \n", "2012-06-01T07:00:00", "2012-06-01T07:00:00Zx", "2012-06-01T07:00:00+01:00 x",
                             "2012-06-01x", "2012-13-01", "2012-02-30T07:00:00Z", "2012-06-01T25:00:00Z", "\xFF\xFE"})
        EXPECT_EQ(Converter::mppFromZelbDateTime(text), std::nullopt) << text;
    EXPECT_EQ(Converter::mppFromMspdiDateTime("2012-06-01T07:00:00Z"), std::nullopt);
    EXPECT_EQ(Converter::mppFromMspdiDateOnly("2012-06-01T07:00:00"), std::nullopt);
    EXPECT_EQ(Converter::mppFromZelbDateTime(std::string(1'000'000, '1') + "T"), std::nullopt);
}

TEST_F(DateTimeConverter, ParsesMspdiTextsInTheSystemZone) {
    EXPECT_EQ(Converter::mppFromMspdiDateTime("2012-06-01T07:00:00"), utc({2012, 6, 1, 5}));
    EXPECT_EQ(Converter::mppFromMspdiDateTime("2012-06-01"), utc({2012, 5, 31, 22}));
    EXPECT_EQ(Converter::mppFromMspdiDateTime("2012-03-25T02:30:00"), utc({2012, 3, 25, 1, 30})) << "in the gap";
    EXPECT_EQ(Converter::mppFromMspdiDateTime("2012-10-28T02:30:00"), utc({2012, 10, 28, 0, 30})) << "the first one";
}

TEST_F(DateTimeConverter, WritesSourceTextsWithAnOffsetOfThreeParts) {
    const Date seven = utc({2012, 6, 1, 7});
    EXPECT_EQ(Converter::zelbFromMppDateTime(seven), "2012-06-01T09:00:00+02:00:00");
    EXPECT_EQ(Converter::zelbFromMppDateTime(seven, true), "2012-06-01T07:00:00Z");
    EXPECT_EQ(Converter::zelbFromMppDateOnly(utc({2012, 6, 1, 23})), "2012-06-02");
    EXPECT_EQ(Converter::zelbFromMppDateOnly(utc({2012, 6, 1, 23}), true), "2012-06-01");
    EXPECT_EQ(Converter::zelbFromMspdiDateTime("2012-06-01T09:00:00"), "2012-06-01T09:00:00+02:00:00");
    EXPECT_EQ(Converter::zelbFromMspdiDateTime("2012-06-01T09:00:00", true), "2012-06-01T07:00:00Z");
    EXPECT_EQ(Converter::zelbFromMspdiDateOnly("2012-06-01"), "2012-06-01");
    EXPECT_EQ(Converter::zelbFromMspdiDateOnly("2012-06-01", true), "2012-05-31");
    EXPECT_EQ(Converter::zelbFromMspdiDateTime("no date"), std::nullopt);
    // Digits of other scripts have several bytes each.
    EXPECT_EQ(Converter::ensureISOTimeZoneFormat("T+\u0660\u0661\u0662\u0663", false),
              "T+\u0660\u0661:\u0662\u0663:00");
    EXPECT_EQ(Converter::ensureISOTimeZoneFormat("T-\u0660\u0661\u0662\u0663\u0664\u0665", false),
              "T-\u0660\u0661:\u0662\u0663:\u0664\u0665");
    EXPECT_EQ(Converter::zelbFromMppDateTime(std::nullopt), std::nullopt);
    // Berlin's local mean time had an offset of seconds.
    EXPECT_EQ(Converter::zelbFromMppDateTime(utc({1890, 1, 1})), "1890-01-01T00:53:28+00:53:28");
    const test::ScopedTimeZone greenwich("UTC");
    EXPECT_EQ(Converter::zelbFromMppDateTime(seven), "2012-06-01T07:00:00+00:00:00");
    EXPECT_EQ(Converter::zelbFromMppDateTime(seven, true), "2012-06-01T07:00:00Z");
}

TEST_F(DateTimeConverter, WritesMspdiTextsInTheCapturedZone) {
    const test::ScopedTimeZone elsewhere("Asia/Kolkata");
    EXPECT_EQ(Converter::mspdiFromMppDateTime(utc({2012, 6, 1, 7})), "2012-06-01T09:00:00");
    EXPECT_EQ(Converter::mspdiFromMppDateOnly(utc({2012, 6, 1, 23})), "2012-06-02");
    EXPECT_EQ(Converter::mspdiFromZelbDateTime(" 2012-06-01T07:00:00Z "), "2012-06-01T09:00:00");
    EXPECT_EQ(Converter::mspdiFromZelbDateTime("no date"), std::nullopt);
    EXPECT_EQ(Converter::mspdiFromMppDateOnly(std::nullopt), std::nullopt);
}

} // namespace
} // namespace brackwater
