#include "TWMSPCommon/MSPCDateComponents.h"

#include "Platform/Time/GregorianCalendar.h"
#include "support/ScopedTimeZone.h"

#include <gtest/gtest.h>

#include <limits>

namespace brackwater {
namespace {

using test::ScopedTimeZone;

MSPCDateComponents componentsOf(const CivilTime& time, std::int64_t zoneHour = 0, std::int64_t zoneMinute = 0) {
    MSPCDateComponents components(DateComponents::fromCivilTime(time));
    components.setTimeZoneHour(zoneHour);
    components.setTimeZoneMinute(zoneMinute);
    components.fixUTC();
    return components;
}

Date utc(const CivilTime& time) { return GregorianCalendar::dateFromFields(time, 0).value(); }

const Date kWinterNow = utc({2012, 1, 15});
const Date kSummerNow = utc({2012, 7, 15});

TEST(MSPCDateComponents, ConvertToAnotherOffset) {
    auto components = componentsOf({2012, 6, 1, 8, 0, 0}, 5, 30);
    EXPECT_EQ(components.convertToTimeZoneForSecondsFromGMT(-3600), MSPCAllUnits);
    EXPECT_EQ(components, componentsOf({2012, 6, 1, 1, 30, 0}, -1, 0));
    EXPECT_FALSE(components.isUTC());
    EXPECT_EQ(components.convertToTimeZoneForSecondsFromGMT(-12600), MSPCAllUnits);
    EXPECT_EQ(components, componentsOf({2012, 5, 31, 23, 0, 0}, -3, -30));
    EXPECT_EQ(components.convertToUTC(), MSPCAllUnits);
    EXPECT_EQ(components, componentsOf({2012, 6, 1, 2, 30, 0}));
}

TEST(MSPCDateComponents, StayUnchangedIfTheyAreNotAnInstant) {
    constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
    const ScopedTimeZone zone("Europe/Berlin");
    const auto before = componentsOf({most, 6, 1}, 2);
    auto components = before;
    EXPECT_EQ(components.convertToUTC(), NSNotFound);
    EXPECT_EQ(components.convertToSystemTimezone(), NSNotFound);
    EXPECT_EQ(components, before);
    auto farOff = componentsOf({2012, 6, 1}, most, -most);
    EXPECT_EQ(farOff.convertToUTC(), NSNotFound);
    auto alreadyUTC = componentsOf({most});
    EXPECT_EQ(alreadyUTC.convertToUTC(), MSPCAllUnits) << "nothing to move";
}

// The offset is that of the instant of the fields in the system zone. Near a clock change it differs from the offset at
// the components' own instant.
TEST(MSPCDateComponents, UseTheSystemOffsetAtTheirFieldsInTheSystemZone) {
    const ScopedTimeZone zone("Europe/Berlin");
    auto summer = componentsOf({2012, 6, 1, 7, 0, 0});
    EXPECT_EQ(summer.convertToSystemTimezone(), MSPCAllUnits);
    EXPECT_EQ(summer, componentsOf({2012, 6, 1, 9, 0, 0}, 2));

    // The clocks go forward at 01:00 UTC. 01:30 in Berlin is before that, 01:30 UTC after.
    auto nearChange = componentsOf({2012, 3, 25, 1, 30, 0});
    nearChange.convertToSystemTimezone();
    EXPECT_EQ(nearChange, componentsOf({2012, 3, 25, 2, 30, 0}, 1)) << "a wall time that Berlin never had";
}

TEST(MSPCDateComponents, AreForcedIntoTheSystemZoneWithoutChangingLocalTime) {
    const ScopedTimeZone zone("America/St_Johns");
    auto components = componentsOf({2012, 1, 15, 9, 0, 0}, 5);
    EXPECT_EQ(components.forceSystemTimezoneforDate(utc({2012, 1, 15}), kSummerNow), MSPCAllUnits);
    EXPECT_EQ(components, componentsOf({2012, 1, 15, 9, 0, 0}, -3, -30));
    components.forceSystemTimezoneforDate(utc({2012, 7, 15}), kSummerNow);
    EXPECT_EQ(components, componentsOf({2012, 1, 15, 9, 0, 0}, -2, -30));
    components.forceSystemTimezoneforDate(std::nullopt, kSummerNow);
    EXPECT_EQ(components, componentsOf({2012, 1, 15, 9, 0, 0}, -3, -30)) << "of the fields themselves";

    const ScopedTimeZone greenwich("UTC");
    components.forceSystemTimezoneforDate(utc({2012, 7, 15}), kSummerNow);
    EXPECT_TRUE(components.isUTC());
}

// Samoa moved from 11 hours behind Greenwich to 13 ahead at the end of 2011, with daylight saving time before and
// after.
TEST(MSPCDateComponents, AddDaylightSavingToThePresentOffsetWhenForcedInWinter) {
    const ScopedTimeZone zone("Pacific/Apia");
    const Date daylightBeforeTheMove = utc({2011, 1, 15});
    const Date standardBeforeTheMove = utc({2011, 7, 15});
    MSPCDateComponents components;
    components.forceSystemTimezoneforDate(daylightBeforeTheMove, utc({2012, 7, 15}));
    EXPECT_EQ(components.timeZoneHour(), 14) << "13 of now and 1 of daylight time";
    components.forceSystemTimezoneforDate(standardBeforeTheMove, utc({2012, 7, 15}));
    EXPECT_EQ(components.timeZoneHour(), -11);
    components.forceSystemTimezoneforDate(daylightBeforeTheMove, utc({2012, 1, 15}));
    EXPECT_EQ(components.timeZoneHour(), -10) << "now is daylight time as well";

    const ScopedTimeZone lordHowe("Australia/Lord_Howe");
    components.forceSystemTimezoneforDate(kWinterNow, kSummerNow);
    EXPECT_EQ(components.secondsFromGMT(), 11 * 3600) << "half an hour of daylight time";
}

TEST(DateComponents, CountYearsWithinTheirEra) {
    EXPECT_EQ(DateComponents::fromCivilTime({0}).year, 1) << "1 BC";
    DateComponents components;
    EXPECT_EQ(components.civilTime(), (CivilTime{1, 1, 1, 0, 0, 0})) << "unset fields are the first of their kind";
    components.era = 0;
    components.year = 45;
    EXPECT_EQ(components.civilTime().year, -44);
    components.year = std::numeric_limits<std::int64_t>::min();
    EXPECT_GT(components.civilTime().year, 1'000'000'000'000);
}

} // namespace
} // namespace brackwater
