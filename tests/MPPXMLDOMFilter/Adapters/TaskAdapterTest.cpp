#include "MPPXMLDOMFilter/Adapters/MSPEXMLExtendedAttributeAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLNotesAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLPredecessorLinkAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLResourceBaselineAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLTaskAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLTaskBaselineAdapter.h"
#include "TWMSPCommon/MSPImportMapper/MSPIUtilities.h"
#include "support/ExpectException.h"
#include "support/LogCapture.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace brackwater::test {

namespace {

class TaskAdapter : public ::testing::Test {
protected:
    void set(std::string_view name, ElementText text) {
        EXPECT_EQ(element->addChildElementWithName(name, text), nullptr);
    }

    std::shared_ptr<MSPEXMLTaskAdapter> element = MSPEXMLTaskAdapter::elementWithName("Task", nullptr);
    MPPTask& task = *element->mppDomObject();
    LogCapture log;
};

} // namespace

TEST_F(TaskAdapter, StoresItsVocabulary) {
    set("ID", "12");
    set("CalendarUID", "3");
    set("ConstraintDate", "2012-06-04T08:00:00");
    set("ConstraintType", "4");
    set("Duration", "PT16H0M0S");
    set("Estimated", "0");
    set("Finish", "2012-06-05T17:00:00");
    set("FixedCost", "12.5");
    set("IgnoreResourceCalendar", "1");
    set("LevelingCanSplit", "false");
    set("Milestone", "true");
    set("Name", "Dredge");
    set("OutlineLevel", "2");
    set("PercentComplete", "40");
    set("PercentWorkComplete", "35");
    set("Priority", "700");
    set("Start", "2012-06-04T08:00:01");
    set("Type", "1");
    set("Work", "PT24H0M0S");

    EXPECT_EQ(task.ID, 12U);
    EXPECT_EQ(task.calendar.proxyText(), "3");
    EXPECT_EQ(task.constraintDate, MSPIUtilities::mspdiToMppDateTime("2012-06-04T08:00:00"));
    EXPECT_EQ(task.constraintType, 4);
    EXPECT_EQ(task.duration, 57600.0);
    EXPECT_FALSE(task.estimated);
    EXPECT_EQ(task.endDate, MSPIUtilities::mspdiToMppDateTime("2012-06-05T17:00:00"));
    EXPECT_EQ(task.fixedCost, 12.5);
    EXPECT_TRUE(task.ignoreResourceCalendar);
    EXPECT_FALSE(task.levelingCanSplit);
    EXPECT_TRUE(task.milestone);
    EXPECT_EQ(task.title, "Dredge");
    EXPECT_EQ(task.outlineLevel, 2U);
    EXPECT_EQ(task.percentageComplete, 40U);
    EXPECT_EQ(task.percentageWorkComplete, 35U);
    EXPECT_EQ(task.priority, 700U);
    EXPECT_EQ(task.startDate, MSPIUtilities::mspdiToMppDateTime("2012-06-04T08:00:01"));
    EXPECT_EQ(task.taskType, 1);
    EXPECT_EQ(task.work, 24.0);
}

TEST_F(TaskAdapter, CutsWorkToWholeHoursButNoDuration) {
    set("Work", "PT0H59M59S");
    set("Duration", "PT0H59M59S");
    EXPECT_EQ(task.work, 0.0);
    EXPECT_EQ(task.duration, 3599.0);
    set("Work", "PT1H30M0S");
    EXPECT_EQ(task.work, 1.0);
    set("Work", std::nullopt);
    EXPECT_EQ(task.work, 0.0);
}

TEST_F(TaskAdapter, LogsEveryNameKnownOrNot) {
    set("UID", "12");
    set("Name", "a \"quoted\" {} name");
    set("Manual", "0");
    set("Unknown", std::nullopt);
    (void)element->addChildElementWithName("PredecessorLink");
    EXPECT_EQ(element->addChildElementWithName("Elsewhere"), nullptr);
    element->addChild(MSPEXMLNotesAdapter::elementWithName("Notes", nullptr, "text"));

    EXPECT_THAT(log.lines(), ::testing::ElementsAre(
                                 "Mapping Task /UID =\"12\"", "        Task /Name =\"a \"quoted\" {} name\"",
                                 "        Task /Manual =\"0\"", "        Task /Unknown =\"(null)\"",
                                 "        Task /PredecessorLink", "        Task /Elsewhere", "        Task /Notes  *"));
}

TEST_F(TaskAdapter, LogsALongTextWhole) {
    const std::string name(100000, 'x');
    set("Name", name);
    EXPECT_THAT(log.lines(), ::testing::ElementsAre("        Task /Name =\"" + name + "\""));
}

TEST_F(TaskAdapter, TakesBaselinesAttributesAndNotes) {
    const auto baseline = MSPEXMLTaskBaselineAdapter::elementWithName("Baseline", nullptr);
    const auto attribute = MSPEXMLExtendedAttributeAdapter::elementWithName("ExtendedAttribute", nullptr);
    element->addChild(baseline);
    element->addChild(attribute);
    element->addChild(MSPEXMLNotesAdapter::elementWithName("Notes", nullptr, "mind the tide"));
    element->addChild(MSPEXMLNotesAdapter::elementWithName("Unknown", nullptr, "dropped"));

    EXPECT_THAT(task.baselines, ::testing::ElementsAre(baseline->mppDomObject()));
    EXPECT_THAT(task.extendedAttributes, ::testing::ElementsAre(attribute->mppDomObject()));
    EXPECT_EQ(task.notes, "mind the tide");
}

TEST_F(TaskAdapter, RefusesAChildWhoseClassDoesNotGoWithItsName) {
    expectAssertion("Unexpected 'child' argument class: (null)", [&] { element->addChild(nullptr); });
    expectAssertion("Unexpected 'child' argument class: MSPEXMLResourceBaselineAdapter",
                    [&] { element->addChild(MSPEXMLResourceBaselineAdapter::elementWithName("Baseline", nullptr)); });
    for (const char* name : {"ExtendedAttribute", "Notes"})
        expectAssertion("Unexpected 'child' argument class: MSPEXMLTaskBaselineAdapter",
                        [&] { element->addChild(MSPEXMLTaskBaselineAdapter::elementWithName(name, nullptr)); });
}

TEST_F(TaskAdapter, MakesItsLinksWithConsecutiveIDs) {
    const auto made = element->addChildElementWithName("PredecessorLink");
    const auto first = std::dynamic_pointer_cast<MSPEXMLPredecessorLinkAdapter>(made);
    const auto second = MSPEXMLPredecessorLinkAdapter::elementWithName("PredecessorLink", nullptr);

    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->name(), "PredecessorLink");
    EXPECT_GT(first->mppDomObject()->ID, 0U);
    EXPECT_EQ(second->mppDomObject()->ID, first->mppDomObject()->ID + 1);
}

TEST(PredecessorLinkAdapter, StoresTheLink) {
    const auto element = MSPEXMLPredecessorLinkAdapter::elementWithName("PredecessorLink", nullptr);
    const MPPConstraint& link = *element->mppDomObject();
    element->addChildElementWithName("PredecessorUID", "7");
    element->addChildElementWithName("LinkLag", "4800.5");
    element->addChildElementWithName("Type", "3");
    element->addChildElementWithName("CrossProject", "0");

    EXPECT_EQ(link.task1.proxyText(), "7");
    EXPECT_TRUE(link.task2.isUnset());
    EXPECT_EQ(link.lag, 4800.5);
    EXPECT_EQ(link.constraintType, 3);
    EXPECT_FALSE(link.isPercentage);
}

TEST(PredecessorLinkAdapter, KnowsPercentageLagFormatsOnly) {
    for (const char* format : {"19", "20"}) {
        const auto element = MSPEXMLPredecessorLinkAdapter::elementWithName("PredecessorLink", nullptr);
        element->addChildElementWithName("LagFormat", format);
        EXPECT_TRUE(element->mppDomObject()->isPercentage);
    }
    const auto element = MSPEXMLPredecessorLinkAdapter::elementWithName("PredecessorLink", nullptr);
    expectAssertion("Unexpected Lag Format: 7", [&] { element->addChildElementWithName("LagFormat", "7"); });
    expectAssertion("Unexpected Lag Format: 0", [&] { element->addChildElementWithName("LagFormat", std::nullopt); });
}

TEST(TaskBaselineAdapter, KeepsItsNumberAndHoldsWorkInSeconds) {
    const auto element = MSPEXMLTaskBaselineAdapter::elementWithName("Baseline", nullptr);
    const MPPTaskBaseline& baseline = *element->mppDomObject();
    element->addChildElementWithName("Number", "4");
    element->addChildElementWithName("Duration", "PT8H0M0S");
    element->addChildElementWithName("Finish", "2012-06-05T17:00:00");
    element->addChildElementWithName("Start", "2012-06-04T08:00:00");
    element->addChildElementWithName("Work", "PT1H30M0S");
    element->addChildElementWithName("Cost", "7");

    EXPECT_EQ(element->baselineNumber(), 4);
    EXPECT_EQ(baseline.duration, 28800.0);
    EXPECT_EQ(baseline.finish, MSPIUtilities::mspdiToMppDateTime("2012-06-05T17:00:00"));
    EXPECT_EQ(baseline.start, MSPIUtilities::mspdiToMppDateTime("2012-06-04T08:00:00"));
    EXPECT_EQ(baseline.work, 5400.0);
    EXPECT_EQ(baseline.cost, 0.0);
}

} // namespace brackwater::test
