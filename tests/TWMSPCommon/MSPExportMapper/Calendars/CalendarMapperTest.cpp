#include "MPPXMLDOMFilter/Model/MPPCalendar.h"
#include "Platform/Xml/XMLDocument.h"
#include "TWMSPCommon/MSPExportMapper/Calendars/MSPECalendarMapper.h"
#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPEMapper.h"
#include "TWMSPCommon/MSPImportMapper/MSPIUtilities.h"
#include "support/ExpectException.h"
#include "support/LogCapture.h"
#include "support/ScopedTimeZone.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>

namespace brackwater::test {

namespace {

using ::testing::ElementsAre;

/// A `resource` with its name as id; `schedule` is the content of its `schedule` element, null for none.
std::string resource(std::string_view id, std::string_view parent, const char* schedule = nullptr) {
    return fmt::format("<resource id='{0}' parent='{1}'><name>{0}</name>{2}</resource>", id, parent,
                       schedule ? fmt::format("<schedule>{}</schedule>", schedule) : "");
}

constexpr const char* kTuesdayMorning =
    "<schedule-day day-of-week='tuesday'><time-span start-time='28800' end-time='43200'/></schedule-day>";
constexpr const char* kFridayOff = "<schedule-day day-of-week='friday'/>";
constexpr const char* kOvertime = "<calendar name='Regatta' overtime='true'>"
                                  "<event start='2012-06-01T18:00:00Z' end='2012-06-02T20:00:00Z'/></calendar>";
constexpr const char* kTimeOff = "<calendar name='Holiday'>"
                                 "<event start='2012-06-08T08:00:00Z' end='2012-06-08T12:00:00Z'/></calendar>";

std::string week(const MPPCalendarWorkWeek* week) {
    if (!week)
        return "none";
    std::string text;
    for (const MPPDayRanges* day : week->days())
        text += !*day ? "-|" : (*day)->empty() ? "off|" : descriptionOfRanges(day->get()) + "|";
    return text;
}

std::string shown(const MPPCalendarException& exception) {
    return fmt::format(
        "{} {}/{} {}", exception.name.value_or("(null)"), *MSPIUtilities::mppToMspdiDateTime(exception.startDate),
        *MSPIUtilities::mppToMspdiDateTime(exception.endDate), descriptionOfRanges(&exception.workRanges));
}

class CalendarMapper : public ::testing::Test {
protected:
    /// Maps the resources in order; the first is the top.
    void map(const std::string& resources) {
        std::string reason;
        document = XMLDocument::readText("<scenario>" + resources + "</scenario>", "test", &reason);
        ASSERT_NE(document, nullptr) << reason;
        for (const XMLElement element : document->rootElement().objectsForXQuery(XMLQuery("resource"))) {
            const std::string parent = element.attributeForName("parent").value_or("");
            mapper.mapCalendarForResource(element, parent.empty() ? std::nullopt : find(parent));
        }
    }
    std::vector<std::shared_ptr<MPPCalendar>> build(const std::string& resources) {
        map(resources);
        mapper.setTopScheduleKey("top");
        mapper.buildCalendarHierarchy();
        return mapper.calendars()->collection();
    }
    std::optional<XMLElement> find(const std::string& id) {
        const auto found = document->rootElement().objectsForXQuery(XMLQuery::childWithValue("resource", "id", id));
        return found.empty() ? std::nullopt : std::optional(found.front());
    }
    /// "UID name base|derived BaseCalendarUID" of each calendar.
    static std::vector<std::string> heads(const std::vector<std::shared_ptr<MPPCalendar>>& calendars) {
        std::vector<std::string> lines;
        for (const auto& calendar : calendars)
            lines.push_back(fmt::format("{} {} {} {}", calendar->ID, calendar->name.value_or("(null)"),
                                        calendar->isBaseCalendar ? "base" : "derived",
                                        calendar->baseCalendar.proxyText()));
        return lines;
    }

    ScopedTimeZone zone{"UTC"};
    MSPEMapper coordinator{nullptr, nullptr, {}, std::nullopt};
    LogCapture log; // after the coordinator, since the first one logs a line of its own
    std::unique_ptr<XMLDocument> document;
    MSPECalendarMapper mapper{&coordinator};
};

} // namespace

TEST_F(CalendarMapper, ResourceDerivesFromTheTopAndKeepsOnlyItsOwnDays) {
    const auto calendars = build(resource("top", "") + resource("a", "top", kTuesdayMorning) + resource("b", "top"));
    EXPECT_THAT(heads(calendars), ElementsAre("1 Standard base -1", "2 a derived 1", "3 b derived 1"));
    EXPECT_EQ(week(calendars[1]->defaultWorkWeek.get()), "-|-|08:00-12:00 |-|-|-|-|");
    EXPECT_EQ(week(calendars[2]->defaultWorkWeek.get()), "none");
    EXPECT_THAT(log.lines(), ElementsAre("  Mapping Project Schedule ...", "  Mapping Schedule for Resource 'a' ...",
                                         "  Mapping Schedule for Resource 'b' ..."));
}

TEST_F(CalendarMapper, GroupBecomesABaseCalendarThroughAFlatCopy) {
    const auto calendars = build(resource("top", "") + resource("g", "top", kFridayOff) +
                                 resource("h", "g", kTuesdayMorning) + resource("r", "h") + resource("s", "g"));
    // Flat copies are numbered after all resources; a group's own number is not used.
    EXPECT_THAT(heads(calendars),
                ElementsAre("1 Standard base -1", "6 g base -1", "7 h base -1", "4 r derived 7", "5 s derived 6"));
    EXPECT_EQ(week(calendars[1]->defaultWorkWeek.get()),
              "off|08:00-12:00 13:00-17:00 |08:00-12:00 13:00-17:00 |08:00-12:00 13:00-17:00 |"
              "08:00-12:00 13:00-17:00 |off|off|");
    EXPECT_EQ(week(calendars[2]->defaultWorkWeek.get()),
              "off|08:00-12:00 13:00-17:00 |08:00-12:00 |08:00-12:00 13:00-17:00 |08:00-12:00 13:00-17:00 |off|off|");
    EXPECT_EQ(week(calendars[3]->defaultWorkWeek.get()), "none");
}

TEST_F(CalendarMapper, ExceptionsAreInheritedAsAWholeAndOnlyByFlatCopies) {
    const std::string both = std::string(kOvertime) + kTimeOff;
    const auto calendars =
        build(resource("top", "", both.c_str()) + resource("g", "top") + resource("h", "g", kTuesdayMorning) +
              resource("i", "h", kTimeOff) + resource("r", "h") + resource("s", "i"));
    std::vector<std::string> names;
    for (const auto& calendar : calendars) {
        std::string list = *calendar->name + ":";
        for (const auto& exception : calendar->exceptions)
            list += " " + *exception->name;
        names.push_back(list);
    }
    EXPECT_THAT(names, ElementsAre("Standard: Regatta Holiday", "g: Regatta Holiday", "h: Regatta Holiday",
                                   "i: Holiday", "r:", "s:"));
}

TEST_F(CalendarMapper, ExceptionsCreateTheDefaultWeekEvenIfNoDayIsDefined) {
    const auto calendars =
        build(resource("top", "") + resource("a", "top", (std::string(kOvertime) + kTimeOff).c_str()));
    const MPPCalendar& calendar = *calendars[1];
    EXPECT_EQ(week(calendar.defaultWorkWeek.get()), "-|-|-|-|-|-|-|");
    ASSERT_EQ(calendar.exceptions.size(), 2U);
    EXPECT_EQ(shown(*calendar.exceptions[0]), "Regatta 2012-06-01T00:00:00/2012-06-02T23:59:59 18:00-20:00 ");
    EXPECT_EQ(shown(*calendar.exceptions[1]), "Holiday 2012-06-08T00:00:00/2012-06-08T23:59:59 ");
    EXPECT_TRUE(calendar.workWeeks.empty());
}

TEST_F(CalendarMapper, WarnsOnceForEachTimeOffCalendarWithOrWithoutEvents) {
    const std::string schedule = std::string(kTimeOff) + "<calendar name='Empty'/>" + kOvertime;
    build(resource("top", "") + resource("a", "top", schedule.c_str()));
    const std::string warning =
        "WARNING: Mapping time-off hours to full non-working day exception in MS Project calendar 'a'.";
    EXPECT_THAT(log.lines(), ElementsAre("  Mapping Project Schedule ...", "  Mapping Schedule for Resource 'a' ...",
                                         warning, warning));
}

TEST_F(CalendarMapper, NamesANamelessGroupOvertimeEvenForTimeOff) {
    const auto calendars =
        build(resource("top", "",
                       "<calendar><event start='2012-06-08T08:00:00Z' end='2012-06-08T12:00:00Z'/>"
                       "</calendar><calendar name='two&#10;lines' overtime='1'>"
                       "<event start='2012-06-09T08:00:00Z' end='2012-06-09T12:00:00Z'/></calendar>"));
    ASSERT_EQ(calendars[0]->exceptions.size(), 2U);
    EXPECT_EQ(calendars[0]->exceptions[0]->name, "two lines");
    EXPECT_EQ(calendars[0]->exceptions[1]->name, "Overtime");
}

TEST_F(CalendarMapper, ExtendedFormatReplacesTheOther) {
    const std::string schedule = std::string(kTuesdayMorning) + kOvertime +
                                 "<flattened-schedule-day day-of-week='sunday'>"
                                 "<time-span start-time='36000' end-time='43200'/></flattened-schedule-day>"
                                 "<flattened-schedule-day date='2012-06-01T00:00:00Z'>"
                                 "<time-span start-time='64800' end-time='72000'/></flattened-schedule-day>"
                                 "<flattened-schedule-day date='2012-06-02T00:00:00Z'>"
                                 "<time-span start-time='64800' end-time='72000'/></flattened-schedule-day>"
                                 "<flattened-schedule-day date='2012-06-08T00:00:00Z'/>";
    const auto calendars = build(resource("top", "") + resource("a", "top", schedule.c_str()));
    const MPPCalendar& calendar = *calendars[1];
    EXPECT_EQ(week(calendar.defaultWorkWeek.get()), "10:00-12:00 |-|-|-|-|-|-|");
    ASSERT_EQ(calendar.exceptions.size(), 2U);
    EXPECT_EQ(shown(*calendar.exceptions[0]), "Overtime 2012-06-01T00:00:00/2012-06-02T23:59:59 18:00-20:00 ");
    EXPECT_EQ(shown(*calendar.exceptions[1]), "Time Off 2012-06-08T00:00:00/2012-06-08T23:59:59 ");
    ASSERT_EQ(calendar.workWeeks.size(), 1U);
    EXPECT_EQ(calendar.workWeeks[0]->name, "Exception days");
    EXPECT_EQ(week(calendar.workWeeks[0].get()), "-|-|-|-|-|off|off|");
    EXPECT_EQ(calendar.workWeeks[0]->startDate, MSPIUtilities::mspdiToMppDateTime("2012-06-01T00:00:00"));
    EXPECT_EQ(calendar.workWeeks[0]->endDate, MSPIUtilities::mspdiToMppDateTime("2012-06-02T23:59:59"));
    EXPECT_THAT(log.lines(), ::testing::SizeIs(2));
}

TEST_F(CalendarMapper, ReadsCalendarsInTheExtendedFormatIfNoDayIsDated) {
    const std::string schedule = std::string("<flattened-schedule-day day-of-week='sunday'/>") + kOvertime;
    const auto calendars = build(resource("top", "") + resource("a", "top", schedule.c_str()));
    EXPECT_EQ(calendars[1]->exceptions.size(), 1U);
    ASSERT_EQ(calendars[1]->workWeeks.size(), 1U);
    EXPECT_EQ(week(calendars[1]->workWeeks[0].get()), "-|-|-|-|-|off|off|");
}

TEST_F(CalendarMapper, ExceptionOfMillionsOfYearsIsAWeekOfNonWorkingDays) {
    const auto begin = std::chrono::steady_clock::now();
    const auto calendars = build(resource("top", "",
                                          "<flattened-schedule-day day-of-week='sunday'/><calendar name='Long' "
                                          "overtime='true'><event start='2012-06-01T08:00:00Z' "
                                          "end='3002012-06-01T10:00:00Z'/></calendar>"));
    EXPECT_EQ(week(calendars[0]->workWeeks.at(0).get()), "off|off|off|off|off|off|off|");
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
}

TEST_F(CalendarMapper, ClimbsOnceThroughDeepHierarchies) {
    std::string resources = resource("top", "", kOvertime);
    std::string parent = "top";
    for (int level = 0; level < 3000; ++level) {
        const std::string id = fmt::format("g{}", level);
        resources += resource(id, parent, level == 0 ? kFridayOff : nullptr);
        parent = id;
    }
    const auto calendars = build(resources);
    ASSERT_EQ(calendars.size(), 3001U);
    EXPECT_EQ(week(calendars[2999]->defaultWorkWeek.get()), week(calendars[1]->defaultWorkWeek.get()));
    EXPECT_EQ(calendars[2999]->exceptions.size(), 1U);
    EXPECT_FALSE(calendars[3000]->isBaseCalendar);
}

TEST_F(CalendarMapper, RejectsUnknownDays) {
    expectAssertion("Unexpected day of week: Montag",
                    [&] { map(resource("top", "", "<schedule-day day-of-week='Montag'/>")); });
    expectAssertion("Unexpected day of week: (null)", [&] {
        const auto other =
            XMLDocument::readText("<resource id='a'><schedule><schedule-day/></schedule></resource>", "test");
        mapper.mapCalendarForResource(other->rootElement(), find("top"));
    });
    expectAssertion("Unexpected day of week: ", [&] {
        const auto other = XMLDocument::readText(
            "<resource id='a'><schedule><schedule-day day-of-week=''/></schedule></resource>", "test");
        mapper.mapCalendarForResource(other->rootElement(), find("top"));
    });
}

TEST_F(CalendarMapper, RejectsASecondTopAndResourcesOutOfOrder) {
    map(resource("top", ""));
    expectAssertion("Top resource calendar UID mast be equal to 1.",
                    [&] { mapper.mapCalendarForResource(*find("top"), std::nullopt); });
    const auto other = XMLDocument::readText("<group><resource id='a'/><resource/></group>", "test");
    const auto resources = other->rootElement().objectsForXQuery(XMLQuery("resource"));
    expectAssertion("Top resource, and only top resource, has no parent resource.",
                    [&] { mapper.mapCalendarForResource(resources[0], resources[1]); });
    expectAssertion("Failed to find arrtibute 'id' in element 'resource'.",
                    [&] { mapper.mapCalendarForResource(resources[1], *find("top")); });
    expectAssertion("Can not find parent resource schedule in the map.",
                    [&] { mapper.mapCalendarForResource(*find("top"), resources[0]); });
}

TEST_F(CalendarMapper, RejectsAHierarchyWithoutItsTop) {
    expectAssertion("Can not find schedule info fo rtop resource.", [&] { mapper.buildCalendarHierarchy(); });
    map(resource("top", "") + resource("a", "top"));
    mapper.setTopScheduleKey("a");
    expectAssertion("Incorrect project calendar UID for top schedule (2). Must be 1.",
                    [&] { mapper.buildCalendarHierarchy(); });
}

TEST_F(CalendarMapper, RejectsAScheduleWhoseParentIsMissingOrItself) {
    map(resource("top", ""));
    const auto other =
        XMLDocument::readText("<group><resource id='a'><schedule/></resource><resource id='b'/></group>", "test");
    const auto resources = other->rootElement().objectsForXQuery(XMLQuery("resource"));
    mapper.mapCalendarForResource(resources[0], resources[1]);
    mapper.setTopScheduleKey("top");
    expectAssertion("Can not find schedule info for key 'b'.", [&] { mapper.buildCalendarHierarchy(); });

    mapper.mapCalendarForResource(resources[1], resources[0]);
    expectAssertion("We should eventually find working times, at least in Project default schedule.",
                    [&] { mapper.buildCalendarHierarchy(); });
}

} // namespace brackwater::test
