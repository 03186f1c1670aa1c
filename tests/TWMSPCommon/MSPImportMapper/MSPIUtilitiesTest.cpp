#include "TWMSPCommon/MSPImportMapper/MSPIUtilities.h"

#include "Platform/Time/GregorianCalendar.h"
#include "support/ExpectException.h"
#include "support/ScopedTimeZone.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <string_view>
#include <utility>

namespace brackwater {
namespace {

using test::expectAssertion;
using test::ScopedTimeZone;

constexpr UnitMask kDateTimeUnits = kDateUnits | kTimeUnits;
constexpr UnitMask kOffsetUnits = MSPCTimeZoneHourUnit | MSPCTimeZoneMinuteUnit;

std::pair<MSPCDateComponents, UnitMask> read(std::string_view text) {
    MSPCDateComponents components;
    const UnitMask units = MSPIUtilities::updateDateTimeComponentsFromISODateTime(components, text);
    return {components, units};
}

Date utc(const CivilTime& time) { return GregorianCalendar::dateFromFields(time, 0).value(); }

TEST(MSPIUtilities, ReportsTheUnitsOfADateTimeText) {
    struct Case {
        std::string_view text;
        UnitMask units;
    };
    for (const Case& c : {
             Case{"", NSNotFound},
             {"abc", 0},
             {"2012-06-01", 28},
             {"2012-06-01T08:30:00", 252},
             {"08:30:00", 224},
             {"2012-06-01T08:30:00Z", kDateTimeUnits | MSPCTimeZoneUTCUnit},
             {"2012-06-01T08:30:00+02:00", kDateTimeUnits | kOffsetUnits},
             {"2012-06-01T08:30:00.000Z", kDateTimeUnits | MSPCTimeZoneUTCUnit},
             {"2012-06-01T08:30:00.000+02:00", kDateTimeUnits},
             {"2012-06-01T08:30:00+0200", kDateTimeUnits},
             {"2012-06-01T08:30:00.Z", kDateTimeUnits},
             {"2012-06-01T08:30:00 +02:00", kDateTimeUnits | kOffsetUnits},
             {"2012-06-01T08:30:00Z+02:00", kDateTimeUnits | MSPCTimeZoneUTCUnit},
             {"2012-06-01T08:30:00+:", kDateTimeUnits},
             {"2012-06-01T08:30:00+02:", kDateTimeUnits | MSPCTimeZoneHourUnit},
             {"2012-06-01T08:30+02:00", kDateUnits},
             {"08:30+02:00", 0},
             {"2012-06-01T08:30", kDateUnits},
             {"2012-06-01 and more", kDateUnits},
             {"2012--01", kYearUnit | kDayUnit},
             {"--", 0},
             {"--T08:30:00", kTimeUnits},
             {"at 08:30:00 sharp", kTimeUnits},
             {"::", 0},
             {" 2012-06-01", 0},
             {std::string_view("2012-06-01\0T08:30:00", 20), kDateUnits},
             {std::string_view("\0", 1), 0},
         })
        EXPECT_EQ(read(c.text).second, c.units) << c.text;
}

TEST(MSPIUtilities, ParsesFieldsAndZone) {
    MSPCDateComponents components = read("-2012-06-01T08:30:05-03:30").first;
    EXPECT_EQ(components.civilTime(), (CivilTime{2012, 6, 1, 8, 30, 5})) << "the sign of the year counts for nothing";
    EXPECT_EQ(components.timeZoneHour(), -3);
    EXPECT_EQ(components.timeZoneMinute(), -30);
    EXPECT_FALSE(components.isUTC());
    EXPECT_TRUE(read("2012-06-01T08:30:00+00:00").first.isUTC());
    EXPECT_EQ(read("99999999999999999999-13-01T99:99:99").first.year, std::numeric_limits<std::int64_t>::max());

    components.setTimeZoneHour(5);
    MSPIUtilities::updateDateTimeComponentsFromISODateTime(components, "2012-06-01T08:30:00Z");
    EXPECT_TRUE(components.isUTC());
    EXPECT_EQ(components.secondsFromGMT(), 0);
}

TEST(MSPIUtilities, RejectsATimeNotSeparatedByT) {
    for (const char* text : {"2012-06-01 08:30:00", "2012-06-0108:30:00", "2012-06-01TT08:30:00",
                             "2012-06-01T 08:30:00", "2012-06-01t08:30:00", "1-2-3:4:5"})
        expectAssertion("", [text] { read(text); });
}

TEST(MSPIUtilities, PrintsTheRequestedFields) {
    const auto print = [](std::string_view text, UnitMask units) {
        return MSPIUtilities::stringFromComponents(read(text).first, units);
    };
    EXPECT_EQ(print("2012-06-01T08:30:00-03:30", MSPCAllUnits), "2012-06-01T08:30:00-03:30");
    EXPECT_EQ(print("2012-06-01T08:30:00+00:00", MSPCAllUnits), "2012-06-01T08:30:00Z");
    EXPECT_EQ(print("2012-06-01T08:30:00+00:00", kDateTimeUnits | kOffsetUnits), "2012-06-01T08:30:00+00:00");
    EXPECT_EQ(print("2012-06-01T08:30:00-00:30", MSPCAllUnits), "2012-06-01T08:30:00-00:30");
    EXPECT_EQ(print("2012-06-01T08:30:00-03:30", kDateTimeUnits | MSPCTimeZoneMinuteUnit), "2012-06-01T08:30:00-00:30");
    EXPECT_EQ(print("800-01-01", kDateUnits), "800-01-01");
    EXPECT_EQ(print("2012-06-01", kMonthUnit | kDayUnit), "06-01");
    EXPECT_EQ(print("2012-06-01", kDayUnit), "01");
    EXPECT_EQ(print("2012-06-01", kYearUnit), "2012--");
    EXPECT_EQ(print("08:30:05", kTimeUnits), "08:30:05");
    EXPECT_EQ(print("08:30:05", kMinuteUnit | kSecondUnit), "30:05");
    EXPECT_EQ(print("2012-06-01T08:30:05Z", kDateUnits | MSPCTimeZoneUTCUnit), "2012-06-01TZ");
    EXPECT_EQ(print("2012-06-01T08:30:05", kDateUnits | kSecondUnit), "2012-06-01T::05");
    EXPECT_EQ(print("2012-06-01", 0), "");
    EXPECT_EQ(print("2012-06-01", NSNotFound), std::nullopt);
}

TEST(MSPIUtilities, DistinguishesTheFormats) {
    struct Case {
        const char* text;
        bool iso, zelb, mspdi;
    };
    for (const Case& c : {Case{"2012-06-01T08:30:00", true, false, true},
                          {"2012-06-01T08:30:00Z", true, true, false},
                          {"2012-06-01", true, false, true},
                          {"08:30:00+02:00", true, true, false},
                          {"abc", false, false, false},
                          {"", false, false, false}}) {
        EXPECT_EQ(MSPIUtilities::isIsoiDateTime(c.text), c.iso) << c.text;
        EXPECT_EQ(MSPIUtilities::isZelbDateTime(c.text), c.zelb) << c.text;
        EXPECT_EQ(MSPIUtilities::isMspdiDateTime(c.text), c.mspdi) << c.text;
    }
    EXPECT_TRUE(MSPIUtilities::isMspdiDuration("PT8H0M0S"));
    EXPECT_FALSE(MSPIUtilities::isMspdiDuration("P1D"));
    EXPECT_FALSE(MSPIUtilities::isMspdiDuration(""));
}

TEST(MSPIUtilities, ParsesInstantsInTheTextsZoneOrTheSystems) {
    const ScopedTimeZone zone("Europe/Berlin");
    EXPECT_EQ(MSPIUtilities::zelbToMppDateTime("2012-06-01T08:30:00Z"), utc({2012, 6, 1, 8, 30}));
    EXPECT_EQ(MSPIUtilities::zelbToMppDateTime("2012-06-01T08:30:00-03:30"), utc({2012, 6, 1, 12, 0}));
    EXPECT_EQ(MSPIUtilities::zelbToMppDateTime("2012-06-01T08:30:00"), utc({2012, 6, 1, 6, 30}));
    EXPECT_EQ(MSPIUtilities::zelbToMppDateTime("2012-06-01T08:30:00.000+02:00"), utc({2012, 6, 1, 6, 30}));
    EXPECT_EQ(MSPIUtilities::mspdiToMppDateTime("2012-06-01T08:30:00"), utc({2012, 6, 1, 6, 30}));
    EXPECT_EQ(MSPIUtilities::mspdiToMppDateTime("2012-06-01"), utc({2012, 5, 31, 22}));
    EXPECT_EQ(MSPIUtilities::zelbToMppDateTime(""), std::nullopt);
    EXPECT_EQ(MSPIUtilities::mspdiToMppDateTime(""), std::nullopt);
    EXPECT_EQ(MSPIUtilities::componentsFromISODateTime(""), std::nullopt);
    EXPECT_EQ(MSPIUtilities::componentsFromISODateTime("abc"), MSPCDateComponents());
}

TEST(MSPIUtilities, RejectsMspdiTextsWithAZoneOrWithoutADate) {
    for (const char* text : {"2012-06-01T08:30:00Z", "2012-06-01T08:30:00+02:00", "abc"})
        expectAssertion("Not a valid MSPDI date-time: '" + std::string(text) + "' (time zone?).",
                        [text] { std::ignore = MSPIUtilities::mspdiToMppDateTime(text); });
}

TEST(MSPIUtilities, ConvertsBetweenTheTextFormats) {
    const ScopedTimeZone zone("Europe/Berlin");
    EXPECT_EQ(MSPIUtilities::mppToZelbDateTime(utc({2012, 6, 1, 7})), "2012-06-01T09:00:00+02:00");
    EXPECT_EQ(MSPIUtilities::mppToMspdiDateTime(utc({2012, 6, 1, 7})), "2012-06-01T09:00:00");
    EXPECT_EQ(MSPIUtilities::zelbToMspdiDateTime("2012-06-01T07:00:00Z"), "2012-06-01T09:00:00");
    EXPECT_EQ(MSPIUtilities::zelbToMspdiDateTime("2012-06-01T07:00:00"), "2012-06-01T09:00:00") << "UTC without a zone";
    EXPECT_EQ(MSPIUtilities::zelbToMspdiDateTime("2012-06-01T23:00:00Z", kDateUnits), "2012-06-02");
    EXPECT_EQ(MSPIUtilities::zelbToMspdiDateTime("2012-06-01T23:00:00Z", kTimeUnits | MSPCTimeZoneMask), "01:00:00");
    EXPECT_EQ(MSPIUtilities::zelbToMspdiDateOnly("2012-06-01T23:00:00Z"), "2012-06-02");
    EXPECT_EQ(MSPIUtilities::zelbToMspdiDateStartTime("2012-06-01T23:00:00Z"), "2012-06-02T00:00:00");
    EXPECT_EQ(MSPIUtilities::zelbToMspdiDateEndTime("2012-06-01T23:00:00Z"), "2012-06-02T23:59:59");
    EXPECT_EQ(MSPIUtilities::mspdiToZelbDateTime("2012-06-01T09:00:00"), "2012-06-01T09:00:00+02:00");
    EXPECT_EQ(MSPIUtilities::mspdiToZelbDateTime("2012-06-01T09:00:00Z"), "2012-06-01T09:00:00Z");
    EXPECT_EQ(MSPIUtilities::mspdiToZelbTimeOnly("2012-06-01T08:30:05"), "30605");
    EXPECT_EQ(MSPIUtilities::mspdiToZelbTimeOnly("2012-06-01"), "0");
    EXPECT_EQ(MSPIUtilities::mspdiDateTimeToString("2012-06-01T09:00:00"), "2012-06-01 07:00:00 +0000");
    const ScopedTimeZone greenwich("UTC");
    EXPECT_EQ(MSPIUtilities::mppToZelbDateTime(utc({2012, 6, 1, 7})), "2012-06-01T07:00:00Z");
}

TEST(MSPIUtilities, ComparesMspdiTexts) {
    EXPECT_EQ(MSPIUtilities::compareMspdiDateTime("2012-06-01", "2012-06-01T00:00:01"), -1);
    EXPECT_EQ(MSPIUtilities::compareMspdiDateTime("2012-06-02", "2012-06-01T08:00:00"), 1);
    EXPECT_EQ(MSPIUtilities::compareMspdiDateTime("2012-06-01", "2012-06-01T00:00:00"), 0);
    EXPECT_EQ(MSPIUtilities::compareMspdiDateTime("", "2012-06-01"), -1);
    EXPECT_EQ(MSPIUtilities::compareMspdiDateTime("2012-06-01", ""), 1);
    EXPECT_EQ(MSPIUtilities::compareMspdiDateTime("", ""), 0);
}

TEST(MSPIUtilities, RejectsDatesOutOfRange) {
    const ScopedTimeZone zone("Europe/Berlin");
    const std::string digits(1'000'000, '9');
    for (const std::string& text : {std::string("99999999999999999999-01-01T00:00:00"), digits + "-01-01",
                                    "2012-" + digits + "-01", "2012-06-01T" + digits + ":00:00"}) {
        const std::string_view shown = std::string_view(text).substr(0, 40);
        EXPECT_EQ(MSPIUtilities::mspdiToMppDateTime(text), std::nullopt) << shown;
        EXPECT_EQ(MSPIUtilities::zelbToMppDateTime(text), std::nullopt) << shown;
        EXPECT_NO_THROW(std::ignore = MSPIUtilities::zelbToMspdiDateTime(text)) << shown;
        EXPECT_NO_THROW(std::ignore = MSPIUtilities::mspdiToZelbDateTime(text)) << shown;
    }
    EXPECT_EQ(MSPIUtilities::zelbToMspdiDateTime("99999999999999999999-01-01T00:00:00Z"),
              "9223372036854775807-01-01T00:00:00")
        << "what does not move is printed as it was read";
}

TEST(MSPIUtilities, CarriesOverOutOfRangeFields) {
    EXPECT_EQ(MSPIUtilities::zelbToMppDateTime("2012-13-01T99:00:00Z"), utc({2013, 1, 5, 3}));
    EXPECT_EQ(MSPIUtilities::zelbToMppDateTime("2012-00-00T00:00:00Z"), utc({2011, 11, 30}));
    EXPECT_EQ(MSPIUtilities::zelbToMppDateTime("2012-06-01T00:00:00+99:99"), utc({2012, 5, 27, 19, 21}));
    EXPECT_EQ(MSPIUtilities::zelbToMppDateTime("\xFF\xFE"), MSPIUtilities::zelbToMppDateTime("abc"));
}

} // namespace
} // namespace brackwater
