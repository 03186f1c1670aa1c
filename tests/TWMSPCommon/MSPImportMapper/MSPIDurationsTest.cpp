#include "TWMSPCommon/MSPImportMapper/MSPIUtilities.h"
#include "support/ExpectException.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace brackwater {
namespace {

TEST(Durations, ParseHoursMinutesAndSecondsOfAnMspdiText) {
    EXPECT_EQ(MSPIUtilities::mspdiDurationInSecs("PT8H0M0S"), 28800);
    EXPECT_EQ(MSPIUtilities::mspdiDurationInSecs("P1DT1H"), 3600) << "the day is not counted";
    EXPECT_EQ(MSPIUtilities::mspdiDurationInSecs("P1Y2M3DT1H2M3S"), 3723);
    EXPECT_EQ(MSPIUtilities::mspdiDurationInSecs("about PT5M or so"), 300);
    EXPECT_EQ(MSPIUtilities::mspdiDurationInSecs("PT"), 0);
    EXPECT_EQ(MSPIUtilities::mspdiDurationInSecs(""), -1);
    for (const std::string text : {"P1D", "8 hours", "T1H"})
        test::expectAssertion("Failed to convert MSPDI duration: '" + text + "'.",
                              [&text] { std::ignore = MSPIUtilities::mspdiDurationInSecs(text); });

    MSPCDateComponents components;
    EXPECT_EQ(MSPIUtilities::updateDateTimeComponentsFromISODuration(components, "P1Y2M3DT4H5M6S"), 252U);
    EXPECT_EQ(components.civilTime(), (CivilTime{1, 2, 3, 4, 5, 6}));
}

TEST(Durations, ParseTheStrictFormAsMppDuration) {
    EXPECT_EQ(MSPIUtilities::mspdiToMppDuration("PT8H0M0S"), 28800.0);
    EXPECT_EQ(MSPIUtilities::mspdiToMppDuration("PT1H2M3Sx"), 3723.0);
    EXPECT_EQ(MSPIUtilities::mspdiToMppDuration("PTHM5S"), 5.0);
    for (const char* text : {"", "P1DT1H", "PT1H", "PT1H0M", "xPT1H0M0S", "PT1.5H0M0S"})
        EXPECT_EQ(MSPIUtilities::mspdiToMppDuration(text), 0.0) << text;
}

TEST(Durations, ArePrintedInEachForm) {
    EXPECT_EQ(MSPIUtilities::mppToMspdiDuration(28800.0), "PT8H0M0S");
    EXPECT_EQ(MSPIUtilities::mppToMspdiDuration(90000.0), "PT25H0M0S");
    EXPECT_EQ(MSPIUtilities::mppToMspdiDuration(3723.9), "PT1H2M3S");
    EXPECT_EQ(MSPIUtilities::mppToMspdiDuration(-3723.0), "PT-1H-2M-3S");
    EXPECT_EQ(MSPIUtilities::zelbToMspdiDuration("3600"), "PT1H0M0S");
    EXPECT_EQ(MSPIUtilities::zelbToMspdiDuration("  90.7 s"), "PT0H1M30S");
    EXPECT_EQ(MSPIUtilities::zelbToMspdiDuration("soon"), "PT0H0M0S");
    EXPECT_EQ(MSPIUtilities::zelbToMspdiDuration(""), "PT0H0M0S");
    EXPECT_EQ(MSPIUtilities::zelbToMspdiDuration(std::nullopt), std::nullopt);
    EXPECT_EQ(MSPIUtilities::mspdiToZelbDuration("PT1H0M0S"), "3600");
    EXPECT_EQ(MSPIUtilities::mspdiToZelbDuration(""), std::nullopt);
    EXPECT_EQ(MSPIUtilities::mppToZelbDuration(1.005e6), "1005000.00");
    EXPECT_EQ(MSPIUtilities::mppToZelbDuration(0.126), "0.13");
    EXPECT_EQ(MSPIUtilities::hourMinSecFromDuration(28800.0), "08:00:00");
    EXPECT_EQ(MSPIUtilities::hourMinSecFromDuration(100 * 3600 + 61.9), "100:01:01");
}

TEST(Durations, SaturateOnOverflow) {
    const std::string digits(1'000'000, '9');
    EXPECT_EQ(MSPIUtilities::mspdiDurationInSecs("PT" + digits + "H" + digits + "M" + digits + "S"),
              std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(MSPIUtilities::mspdiToMppDuration("PT" + digits + "H0M0S"), 2147483647.0 * 3600);
    EXPECT_EQ(MSPIUtilities::mppToMspdiDuration(1e300), "PT596523H14M7S");
    EXPECT_EQ(MSPIUtilities::mppToMspdiDuration(-HUGE_VAL), "PT-596523H-14M-8S");
    EXPECT_EQ(MSPIUtilities::mppToMspdiDuration(std::nan("")), "PT0H0M0S");
    EXPECT_EQ(MSPIUtilities::zelbToMspdiDuration(digits), "PT596523H14M7S");
    EXPECT_EQ(MSPIUtilities::hourMinSecFromDuration(HUGE_VAL), "2562047788015215:30:07");
}

} // namespace
} // namespace brackwater
