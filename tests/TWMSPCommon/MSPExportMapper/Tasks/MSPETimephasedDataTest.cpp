#include "TWMSPCommon/MSPExportMapper/Tasks/MSPETimephasedDataMapper.h"
#include "TWMSPCommon/MSPImportMapper/MSPIUtilities.h"
#include "support/MappedProject.h"
#include "support/ScopedTimeZone.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace brackwater::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The days of a span in local time, with a star after each working day.
std::vector<std::string> daysOf(std::string_view start, std::string_view end) {
    std::vector<std::string> texts;
    for (const auto& day : MSPETimephasedDataInfo(start, end, 0.0, nullptr).days())
        texts.push_back(MSPIUtilities::mppToMspdiDateTime(day.start).value() + " " +
                        MSPIUtilities::mppToMspdiDateTime(day.finish).value() + (day.isWorkingDay ? " *" : ""));
    return texts;
}

} // namespace

TEST(TimephasedDays, SpanOverAWeekendHasADayForEachDate) {
    const ScopedTimeZone zone("Europe/Berlin");
    EXPECT_THAT(daysOf("2012-06-01T16:00:00+02:00", "2012-06-04T10:00:00+02:00"),
                ElementsAre("2012-06-01T16:00:00 2012-06-01T23:59:59 *", "2012-06-02T00:00:00 2012-06-02T23:59:59",
                            "2012-06-03T00:00:00 2012-06-03T23:59:59", "2012-06-04T00:00:00 2012-06-04T10:00:00 *"));
}

TEST(TimephasedDays, DaysAreInTheSystemZone) {
    const ScopedTimeZone zone("Asia/Tokyo");
    EXPECT_THAT(daysOf("2012-06-01T14:00:00Z", "2012-06-01T16:00:00Z"),
                ElementsAre("2012-06-01T23:00:00 2012-06-01T23:59:59 *", "2012-06-02T00:00:00 2012-06-02T01:00:00"));
}

TEST(TimephasedDays, SpanWithoutALengthHasNoDays) {
    EXPECT_THAT(daysOf("2012-06-04T08:00:00Z", "2012-06-04T08:00:00Z"), IsEmpty());
    EXPECT_THAT(daysOf("2012-06-05T08:00:00Z", "2012-06-04T08:00:00Z"), IsEmpty());
    EXPECT_THAT(daysOf("", "2012-06-04T08:00:00Z"), IsEmpty());
    EXPECT_THAT(daysOf("2012-06-04T08:00:00Z", ""), IsEmpty());
}

TEST(TimephasedDays, TerminatesWhereClocksGoBackAtMidnight) {
    // On 2018-02-18 the hour from 23:00 occurred twice, the second time right after 23:59:59.
    const ScopedTimeZone zone("America/Sao_Paulo");
    EXPECT_THAT(daysOf("2018-02-17T12:00:00-02:00", "2018-02-18T12:00:00-03:00"),
                ElementsAre("2018-02-17T12:00:00 2018-02-17T23:59:59", "2018-02-18T00:00:00 2018-02-18T12:00:00"));
}

TEST(TimephasedDays, ContinuesWhereMidnightIsSkipped) {
    // On 2018-11-04 the clocks went from midnight to one o'clock.
    const ScopedTimeZone zone("America/Sao_Paulo");
    EXPECT_THAT(daysOf("2018-11-03T12:00:00-03:00", "2018-11-05T12:00:00-02:00"),
                ElementsAre("2018-11-03T12:00:00 2018-11-03T23:59:59", "2018-11-04T01:00:00 2018-11-04T23:59:59",
                            "2018-11-05T00:00:00 2018-11-05T12:00:00 *"));
}

TEST(TimephasedDays, ContinuesWhereADayIsSkipped) {
    // There was no 2011-12-30 on Samoa.
    const ScopedTimeZone zone("Pacific/Apia");
    const auto days =
        MSPETimephasedDataInfo("2011-12-29T12:00:00-10:00", "2012-01-01T12:00:00+14:00", 0, nullptr).days();
    ASSERT_EQ(days.size(), 3U);
    for (std::size_t i = 1; i < days.size(); ++i)
        EXPECT_LT(days[i - 1].start, days[i].start);
}

TEST(TimephasedDays, OverlongSpanFailsBeforeItExhaustsMemory) {
    expectAssertion("Time span of timephased data is longer than 100000 days.",
                    [] { daysOf("2012-06-04T08:00:00Z", "9012-06-05T08:00:00Z"); });
}

TEST(TimephasedDays, ManyLongSpansOfOneTaskFailToo) {
    MSPEMapper mapper(nullptr, tableOfContents(), {}, std::nullopt);
    const MSPETimephasedDataInfo day("2012-06-04T08:00:00Z", "2012-06-04T09:00:00Z", 0.0, &mapper);
    MSPETimephasedDataArray array(99'999);
    day.addTimephasedDataToArray(array, nullptr);
    expectAssertion("Timephased data of one task is longer than 100000 days.",
                    [&] { day.addTimephasedDataToArray(array, nullptr); });
    EXPECT_EQ(array.size(), 100'000U);
}

TEST(TimephasedData, SplitTaskAlternatesBetweenSegmentsAndGaps) {
    const ScopedTimeZone zone("UTC");
    const auto scenario = ScenarioBuilder()
                              .task("t1", "child=t2,t9,t3", "<split/>")
                              .task("t2", "effort=3600")
                              .task("t3", "start-date=2012-06-05T08:00:00Z end-date=2012-06-06T08:00:00Z")
                              .task("t4", "child=t2", "<split/>")
                              .task("t5", "child=t2,t3")
                              .document();
    MSPEMapper mapper(nullptr, tableOfContents(), {}, std::nullopt);
    MSPETimephasedDataMapper data(&mapper);
    const XMLElement root = scenario->rootElement();
    const auto tasks = root.objectsForXQuery("task");

    // One day of work, five of the gap from Friday evening to Tuesday morning, two of work.
    EXPECT_EQ(data.newTimephasedDataFromZelbSplitTask(tasks[0], root).value().size(), 1U + 5U + 2U);
    EXPECT_EQ(data.splitCount(), 3) << "a reference to nothing counts";
    EXPECT_EQ(data.newTimephasedDataFromZelbSplitTask(tasks[3], root).value().size(), 1U);
    EXPECT_EQ(data.newTimephasedDataFromZelbSplitTask(tasks[4], root), std::nullopt);
}

TEST(TimephasedData, SplitTaskIsMappedWithDummyAndRealAssignments) {
    const auto countOfAssignments = [](std::string_view assignments) {
        const MappedProject project(ScenarioBuilder::withRoots("r1,r2", "t1")
                                        .resource("r1", "type=Staff")
                                        .resource("r2", "type=Material")
                                        .task("t1", std::string("child=t2 ").append(assignments), "<split/>")
                                        .task("t2", "effort=3600"));
        return project->assignments.size();
    };
    EXPECT_EQ(countOfAssignments(""), 1U);
    EXPECT_EQ(countOfAssignments("assign=r1 assign=r2:5"), 2U);
}

TEST(TimephasedData, SplitGroupFails) {
    expectMappingFails(ScenarioBuilder::withRoots("", "t1").task("t1", "type=group", "<split/>"),
                       "Task group and split task are mutualy exclusive.");
}

TEST(TimephasedData, MaterialWithAnOverlongSpanFailsAndNamesTheTaskOrTheLimit) {
    const auto withMaterial = [](std::string_view items) {
        return ScenarioBuilder::withRoots("r1", "t7").resource("r1", "type=Material").task("t7", items);
    };
    expectMappingFails(withMaterial("assign=r1 start-date=abc end-date=2012-06-04T10:00:00Z"),
                       "Material of task 't7' cannot be spread over the days from 'abc' to '2012-06-04T10:00:00Z'.");
    expectMappingFails(
        withMaterial("assign=r1 assign=r1 start-date=1984-01-01T08:00:00Z end-date=2160-01-01T08:00:00Z"),
        "Timephased data of one task is longer than 100000 days.");
}

TEST(TimephasedData, MaterialWithoutSpanHasNoArray) {
    const ScopedTimeZone zone("UTC");
    MSPEMapper mapper(nullptr, tableOfContents(), {}, std::nullopt);
    const auto document = documentOf("<s><assignment/><resource><type>Material</type></resource>"
                                     "<resource><type>Staff</type></resource></s>");
    const auto assignment = *document->rootElement().firstChildElement();
    const auto material = *assignment.nextSiblingElement();
    const auto staff = *material.nextSiblingElement();
    const MSPETimephasedDataMapper data(&mapper);
    const auto count = [&](XMLElement resource, std::string_view start, std::string_view finish) {
        const auto array = data.newTimephasedDataFromAssignment(assignment, resource, start, finish, 3600);
        return array ? static_cast<int>(array->size()) : -1;
    };
    EXPECT_EQ(count(material, "2012-06-01T16:00:00Z", "2012-06-04T10:00:00Z"), 4);
    EXPECT_EQ(count(material, "2012-06-02T00:00:00Z", "2012-06-03T10:00:00Z"), 2);
    EXPECT_EQ(count(material, "2012-06-01T16:00:00Z", "2012-06-01T16:00:00Z"), -1);
    EXPECT_EQ(count(staff, "2012-06-01T16:00:00Z", "2012-06-04T10:00:00Z"), -1);
}

} // namespace brackwater::test
