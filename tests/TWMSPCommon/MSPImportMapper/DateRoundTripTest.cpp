#include "Platform/Time/GregorianCalendar.h"
#include "TWMSPCommon/MSPImportMapper/MSPIUtilities.h"
#include "support/ScopedTimeZone.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace brackwater {
namespace {

// The path of every date in an export: instant, source text, MSPDI text, instant.
class DateRoundTrip : public testing::TestWithParam<const char*> {
protected:
    /// Whether the source text of an instant has the true offset: it does not if the offset is the sum of the present
    /// one and daylight saving time, in a zone whose standard offset has changed since.
    bool hasTrueOffset(Date date) const {
        return calendar.timeZone().isDaylightSavingTime() || !calendar.timeZone().isDaylightSavingTime(date) ||
               calendar.timeZone().daylightSavingTimeOffset(date) ==
                   static_cast<double>(calendar.timeZone().secondsFromGMT(date) - calendar.timeZone().secondsFromGMT());
    }

    /// Whether the local time occurs twice, and this is the second occurrence.
    bool isSecondReading(Date date) const { return calendar.dateFromFields(calendar.fieldsOfDate(date)) != date; }

    /// The hours on both sides of each clock change from 1970 to 2100, and some in between.
    std::vector<Date> instants() const {
        std::vector<Date> dates;
        const TimeZone& rules = calendar.timeZone();
        const Date end = *calendar.dateFromFields({2101});
        for (Date day = *calendar.dateFromFields({1970}); day < end; day = day.advancedBy(86400)) {
            dates.push_back(day.advancedBy(3661));
            if (rules.secondsFromGMT(day) == rules.secondsFromGMT(day.advancedBy(86400)))
                continue;
            for (int quarter = -100; quarter <= 200; ++quarter)
                dates.push_back(day.advancedBy(quarter * 900));
        }
        return dates;
    }

    test::ScopedTimeZone systemZone{GetParam()};
    GregorianCalendar calendar;
};

TEST_P(DateRoundTrip, SourceTextLeadsBackToTheInstant) {
    for (const Date date : instants()) {
        if (!hasTrueOffset(date))
            continue;
        const std::string text = MSPIUtilities::mppToZelbDateTime(date).value();
        ASSERT_EQ(MSPIUtilities::zelbToMppDateTime(text), date) << text;
    }
}

// Only its offset distinguishes the second occurrence of a repeated hour, and an MSPDI text has none.
TEST_P(DateRoundTrip, BothTextsLeadBackToTheInstant) {
    for (const Date date : instants()) {
        if (!hasTrueOffset(date) || isSecondReading(date))
            continue;
        const std::string source = MSPIUtilities::mppToZelbDateTime(date).value();
        const std::string text = MSPIUtilities::zelbToMspdiDateTime(source).value();
        ASSERT_EQ(text, source.substr(0, text.size()));
        ASSERT_EQ(MSPIUtilities::mspdiToMppDateTime(text), date) << text;
        ASSERT_EQ(MSPIUtilities::mppToMspdiDateTime(date), text);
        ASSERT_EQ(MSPIUtilities::zelbToMspdiDateStartTime(source), text.substr(0, 10) + "T00:00:00");
        ASSERT_EQ(MSPIUtilities::zelbToMspdiDateEndTime(source), text.substr(0, 10) + "T23:59:59");
    }
}

INSTANTIATE_TEST_SUITE_P(Zones, DateRoundTrip,
                         testing::Values("UTC", "Europe/Berlin", "America/St_Johns", "Asia/Kolkata", "Pacific/Apia",
                                         "Australia/Lord_Howe"),
                         [](const auto& zone) {
                             std::string name = zone.param;
                             std::erase_if(name, [](char c) { return c == '/' || c == '_'; });
                             return name;
                         });

TEST(DateRoundTrip, MovesAnHourNearAClockChange) {
    const test::ScopedTimeZone zone("Europe/Berlin");
    // 03:30 in summer time, half an hour after the change: as a local time it is unambiguous.
    const Date behindSpring = *GregorianCalendar::dateFromFields({2012, 3, 25, 1, 30}, 0);
    EXPECT_EQ(MSPIUtilities::mppToZelbDateTime(behindSpring), "2012-03-25T03:30:00+02:00");
    EXPECT_EQ(MSPIUtilities::mppToMspdiDateTime(behindSpring), "2012-03-25T03:30:00");
    EXPECT_EQ(MSPIUtilities::zelbToMspdiDateTime("2012-03-25T01:30:00Z"), "2012-03-25T02:30:00")
        << "01:30 in Berlin is still winter";
    // Only its offset distinguishes the second 02:30 of the autumn night, and the MSPDI text has none.
    const Date secondReading = *GregorianCalendar::dateFromFields({2012, 10, 28, 1, 30}, 0);
    EXPECT_EQ(MSPIUtilities::mppToZelbDateTime(secondReading), "2012-10-28T02:30:00+01:00");
    EXPECT_EQ(MSPIUtilities::mppToMspdiDateTime(secondReading), "2012-10-28T03:30:00");
}

} // namespace
} // namespace brackwater
