#include "Platform/Xml/XMLDocument.h"
#include "TWMSPCommon/MSPExportMapper/Calendars/MSPECalendarExceptions.h"
#include "TWMSPCommon/MSPImportMapper/MSPIUtilities.h"
#include "support/ExpectException.h"
#include "support/ScopedTimeZone.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace brackwater::test {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// "2012-06-01T00:00:00 - 2012-06-02T23:59:59 (2) 18:00:00-20:00:00" for each exception: days and times, in the system
/// zone.
std::vector<std::string> shown(const MSPECalendarExceptions& group) {
    std::vector<std::string> lines;
    for (std::int64_t index = 0; index < group.exceptionsCount(); ++index) {
        Date from;
        Date to;
        std::int64_t days = 0;
        std::int64_t count = 0;
        EXPECT_TRUE(group.exception(index, from, to, &days));
        EXPECT_TRUE(group.exception(index, count));
        std::string line = fmt::format("{} - {} ({})", *MSPIUtilities::mppToMspdiDateTime(from),
                                       *MSPIUtilities::mppToMspdiDateTime(to), days);
        for (std::int64_t place = 0; place < count; ++place) {
            double start = 0;
            double end = 0;
            EXPECT_TRUE(group.exception(index, place, start, end));
            line += fmt::format(" {}-{}", MSPIUtilities::hourMinSecFromDuration(start),
                                MSPIUtilities::hourMinSecFromDuration(end));
        }
        lines.push_back(line);
    }
    return lines;
}

std::string event(const char* start, const char* end) {
    return fmt::format("<event start='{}' end='{}'/>", start, end);
}

MSPECalendarExceptions mapped(const std::string& events, const char* attributes = "name='Group' overtime='true'") {
    const auto document = XMLDocument::readText(fmt::format("<calendar {}>{}</calendar>", attributes, events), "test");
    MSPECalendarExceptions group(document->rootElement());
    group.mapEvents();
    return group;
}

MSPECalendarExceptions mappedDays(const std::string& days, bool overtime) {
    const auto document = XMLDocument::readText("<schedule>" + days + "</schedule>", "test");
    const auto elements = document->rootElement().objectsForXQuery(XMLQuery("flattened-schedule-day[@date]"));
    MSPECalendarExceptions group(elements, overtime);
    group.mapEvents();
    return group;
}

class CalendarExceptions : public ::testing::Test {
protected:
    ScopedTimeZone zone{"UTC"};
};

} // namespace

TEST_F(CalendarExceptions, EventFromMidnightToMidnightCoversWholeDays) {
    EXPECT_THAT(shown(mapped(event("2012-06-01T00:00:00Z", "2012-06-03T00:00:00Z"))),
                ElementsAre("2012-06-01T00:00:00 - 2012-06-02T23:59:59 (2) 00:00:00-23:59:59"));
    EXPECT_THAT(shown(mapped(event("2012-06-01T00:00:00Z", "2012-06-02T00:00:00Z"))),
                ElementsAre("2012-06-01T00:00:00 - 2012-06-01T23:59:59 (1) 00:00:00-23:59:59"));
}

TEST_F(CalendarExceptions, OverlappingEventsAreSplitAtEachBoundary) {
    EXPECT_THAT(shown(mapped(event("2012-06-01T18:00:00Z", "2012-06-03T20:00:00Z") +
                             event("2012-06-02T18:00:00Z", "2012-06-04T20:00:00Z"))),
                ElementsAre("2012-06-01T00:00:00 - 2012-06-01T23:59:59 (1) 18:00:00-20:00:00",
                            "2012-06-02T00:00:00 - 2012-06-03T23:59:59 (2) 18:00:00-20:00:00 18:00:00-20:00:00",
                            "2012-06-04T00:00:00 - 2012-06-04T23:59:59 (1) 18:00:00-20:00:00"));
}

TEST_F(CalendarExceptions, DaysOfAnEventAreInTheSystemZone) {
    const ScopedTimeZone berlin("Europe/Berlin");
    EXPECT_THAT(shown(mapped(event("2012-06-01T23:30:00Z", "2012-06-02T02:00:00Z"))),
                ElementsAre("2012-06-02T00:00:00 - 2012-06-02T23:59:59 (1) 01:30:00-04:00:00"));
}

TEST_F(CalendarExceptions, MidnightEndSubtractsADaysLengthEvenAcrossAClockChange) {
    const ScopedTimeZone berlin("Europe/Berlin");
    // The clocks go forward on March 25: 23:59:59 of the 25th minus a day's length is 22:59:59 of the 24th.
    const MSPECalendarExceptions group = mapped(event("2012-03-24T00:00:00+01:00", "2012-03-25T00:00:00+01:00"));
    Date from;
    Date to;
    ASSERT_TRUE(group.exception(0, from, to));
    EXPECT_EQ(to, MSPIUtilities::zelbToMppDateTime("2012-03-24T22:59:59+01:00"));
    EXPECT_EQ(from, MSPIUtilities::zelbToMppDateTime("2012-03-24T00:00:00+01:00"));
}

TEST_F(CalendarExceptions, ComparesOnlyTheTimesOfAnEvent) {
    expectAssertion("Incoorrect calendar event start (10:00:00) and end (09:00:00) time.",
                    [] { mapped(event("2012-06-01T10:00:00Z", "2012-06-05T09:00:00Z")); });
    expectAssertion("Incoorrect calendar event start (18:00:00) and end (00:00:00) time.",
                    [] { mapped(event("2012-06-01T18:00:00Z", "2012-06-02T00:00:00Z")); });
    expectAssertion("Calendar event start and end times may be equal only at midnight (00:00:00).",
                    [] { mapped(event("2012-06-01T12:00:00Z", "2012-06-02T12:00:00Z")); });
    expectAssertion("Calendar event start and end days are too close.",
                    [] { mapped(event("2012-06-01T00:00:00Z", "2012-06-01T00:00:00Z")); });
    expectAssertion("Calendar event start and end days are too close.",
                    [] { mapped(event("2012-06-03T00:00:00Z", "2012-06-01T00:00:00Z")); });
    expectAssertion("Incoorrect calendar event start (10:00:00) and end ((null)) time.",
                    [] { mapped("<event start='2012-06-01T10:00:00Z'/>"); });
}

TEST_F(CalendarExceptions, EventThatEndsBeforeItBeginsGivesNoException) {
    EXPECT_THAT(shown(mapped(event("2012-06-05T08:00:00Z", "2012-06-01T09:00:00Z"))), IsEmpty());
    // ... but its start splits another event: the pieces are equal and adjacent, and are joined again.
    EXPECT_THAT(shown(mapped(event("2012-06-05T08:00:00Z", "2012-06-01T09:00:00Z") +
                             event("2012-06-04T08:00:00Z", "2012-06-06T09:00:00Z"))),
                ElementsAre("2012-06-04T00:00:00 - 2012-06-06T23:59:59 (3) 08:00:00-09:00:00"));
}

TEST_F(CalendarExceptions, NameAndKindOfAGroupComeFromItsElement) {
    const MSPECalendarExceptions named = mapped("", "name='Regatta' overtime='YES'");
    EXPECT_EQ(named.calendarName(), "Regatta");
    EXPECT_TRUE(named.overtime());
    EXPECT_EQ(named.exceptionsCount(), 0);
    const MSPECalendarExceptions nameless = mapped("", "overtime=''");
    EXPECT_FALSE(nameless.calendarName());
    EXPECT_FALSE(nameless.overtime());
    EXPECT_FALSE(mapped("", "").overtime());
}

TEST_F(CalendarExceptions, FlattenedOvertimeHasOneEventPerSpan) {
    const MSPECalendarExceptions group = mappedDays("<flattened-schedule-day date='2012-06-02T09:30:00Z'>"
                                                    "<time-span start-time='64800' end-time='72000'/>"
                                                    "<time-span start-time='28800s' end-time='36000'/>"
                                                    "</flattened-schedule-day>",
                                                    true);
    EXPECT_EQ(group.calendarName(), "Overtime");
    EXPECT_TRUE(group.overtime());
    EXPECT_THAT(shown(group),
                ElementsAre("2012-06-02T00:00:00 - 2012-06-02T23:59:59 (1) 08:00:00-10:00:00 18:00:00-20:00:00"));
}

TEST_F(CalendarExceptions, FlattenedTimeOffJoinsItsDays) {
    const MSPECalendarExceptions group = mappedDays("<flattened-schedule-day date='2012-06-02T00:00:00Z'/>"
                                                    "<flattened-schedule-day date='2012-06-01T00:00:00Z'/>"
                                                    "<flattened-schedule-day date='2012-06-01T00:00:00Z'/>",
                                                    false);
    EXPECT_EQ(group.calendarName(), "Time Off");
    EXPECT_FALSE(group.overtime());
    EXPECT_THAT(shown(group), ElementsAre("2012-06-01T00:00:00 - 2012-06-02T23:59:59 (2)"));
}

TEST_F(CalendarExceptions, FlattenedDaysMustMatchTheirKind) {
    expectAssertion("We expect one or more 'time-span' children with time range.",
                    [] { mappedDays("<flattened-schedule-day date='2012-06-02T00:00:00Z'/>", true); });
    expectAssertion("There should be no 'time-span' children. We need just a date.", [] {
        mappedDays("<flattened-schedule-day date='2012-06-02T00:00:00Z'><time-span/></flattened-schedule-day>", false);
    });
    expectAssertion("Failed to make MSPCDateComponents from ZELB date-time: ''.",
                    [] { mappedDays("<flattened-schedule-day date=''/>", false); });
}

} // namespace brackwater::test
