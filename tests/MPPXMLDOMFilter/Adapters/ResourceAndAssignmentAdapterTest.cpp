#include "MPPXMLDOMFilter/Adapters/MSPEXMLAssignmentAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLAssignmentBaselineAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLExtendedAttributeAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLNotesAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLResourceAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLResourceBaselineAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLTaskBaselineAdapter.h"
#include "TWMSPCommon/MSPImportMapper/MSPIUtilities.h"
#include "support/ExpectException.h"
#include "support/LogCapture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace brackwater::test {

TEST(ResourceAdapter, StoresItsVocabularyWithoutAWordInTheLog) {
    const LogCapture log;
    const auto element = MSPEXMLResourceAdapter::elementWithName("Resource", nullptr);
    const MPPResource& resource = *element->mppDomObject();
    element->addChildElementWithName("UID", "5");
    element->addChildElementWithName("ID", "6");
    element->addChildElementWithName("CalendarUID", "2");
    element->addChildElementWithName("CostPerUse", "500");
    element->addChildElementWithName("EmailAddress", "crane@harbour.example");
    element->addChildElementWithName("Group", "Crew");
    element->addChildElementWithName("IsNull", "0");
    element->addChildElementWithName("MaxUnits", "1.5");
    element->addChildElementWithName("Name", "Crane");
    element->addChildElementWithName("StandardRate", "42.5");
    element->addChildElementWithName("StandardRateFormat", "3");

    EXPECT_EQ(resource.ID, 6U);
    EXPECT_EQ(resource.calendar.proxyText(), "2");
    EXPECT_EQ(resource.costPerUse, 5.0);
    EXPECT_EQ(resource.emailAddress, "crane@harbour.example");
    EXPECT_EQ(resource.group, "Crew");
    EXPECT_EQ(resource.maxUnits, 150.0);
    EXPECT_EQ(resource.name, "Crane");
    EXPECT_EQ(resource.standartRate, 42.5);
    EXPECT_TRUE(log.lines().empty());
}

TEST(ResourceAdapter, NumbersItsTypesTheOtherWayRoundThanTheRecord) {
    const auto element = MSPEXMLResourceAdapter::elementWithName("Resource", nullptr);
    const MPPResource& resource = *element->mppDomObject();
    element->addChildElementWithName("Type", "0");
    EXPECT_EQ(resource.type(), 1U);
    EXPECT_FALSE(resource.isCostType());
    element->addChildElementWithName("Type", "1");
    EXPECT_EQ(resource.type(), 0U);
    expectAssertion("Unexpected Resource Type: 2", [&] { element->addChildElementWithName("Type", "2"); });
}

TEST(ResourceAdapter, TakesBaselinesAttributesAndNotes) {
    const auto element = MSPEXMLResourceAdapter::elementWithName("Resource", nullptr);
    const MPPResource& resource = *element->mppDomObject();
    const auto baseline = MSPEXMLResourceBaselineAdapter::elementWithName("Baseline", nullptr);
    const auto attribute = MSPEXMLExtendedAttributeAdapter::elementWithName("ExtendedAttribute", nullptr);
    baseline->addChildElementWithName("Number", "2");
    baseline->addChildElementWithName("Work", "PT8H0M0S");
    element->addChild(baseline);
    element->addChild(attribute);
    element->addChild(MSPEXMLNotesAdapter::elementWithName("Notes", nullptr, "heavy"));

    EXPECT_THAT(resource.baselines, ::testing::ElementsAre(baseline->mppDomObject()));
    EXPECT_EQ(baseline->baselineNumber(), 2);
    EXPECT_EQ(baseline->mppDomObject()->work, 0.0);
    EXPECT_THAT(resource.extendedAttributes, ::testing::ElementsAre(attribute->mppDomObject()));
    EXPECT_EQ(resource.notes, "heavy");
    expectAssertion("Unexpected 'child' argument class: MSPEXMLTaskBaselineAdapter",
                    [&] { element->addChild(MSPEXMLTaskBaselineAdapter::elementWithName("Baseline", nullptr)); });
}

TEST(AssignmentAdapter, StoresItsVocabularyAndLogsEveryName) {
    const LogCapture log;
    const auto element = MSPEXMLAssignmentAdapter::elementWithName("Assignment", nullptr);
    const MPPAssignment& assignment = *element->mppDomObject();
    element->addChildElementWithName("UID", "9");
    element->addChildElementWithName("Finish", "2012-06-05T17:00:00");
    element->addChildElementWithName("RemainingWork", "PT7H59M0S");
    element->addChildElementWithName("ResourceUID", "5");
    element->addChildElementWithName("Start", "2012-06-04T08:00:00");
    element->addChildElementWithName("TaskUID", "12");
    element->addChildElementWithName("Units", "0.5");
    element->addChildElementWithName("Work", "PT16H0M0S");
    element->addChildElementWithName("Milestone", "0");

    EXPECT_EQ(assignment.ID, 0U);
    EXPECT_EQ(assignment.finishDate, MSPIUtilities::mspdiToMppDateTime("2012-06-05T17:00:00"));
    EXPECT_EQ(assignment.remainingWork, 7.0);
    EXPECT_EQ(assignment.resource.proxyText(), "5");
    EXPECT_EQ(assignment.startDate, MSPIUtilities::mspdiToMppDateTime("2012-06-04T08:00:00"));
    EXPECT_EQ(assignment.task.proxyText(), "12");
    EXPECT_EQ(assignment.assignmentUnits, 5000.0);
    EXPECT_EQ(assignment.work, 16.0);
    ASSERT_EQ(log.lines().size(), 9U);
    EXPECT_EQ(log.lines()[0], "+++ Mapping Assignment /UID =\"9\"");
    EXPECT_EQ(log.lines()[3], "+++         Assignment /ResourceUID =\"5\"");
    EXPECT_EQ(log.lines()[8], "+++         Assignment /Milestone =\"0\"");
}

TEST(AssignmentAdapter, TakesBaselinesOnly) {
    const LogCapture log;
    const auto element = MSPEXMLAssignmentAdapter::elementWithName("Assignment", nullptr);
    const auto baseline = MSPEXMLAssignmentBaselineAdapter::elementWithName("Baseline", nullptr);
    baseline->addChildElementWithName("Number", "1");
    element->addChild(baseline);
    element->addChild(MSPEXMLNotesAdapter::elementWithName("Notes", nullptr, "dropped"));

    EXPECT_THAT(element->mppDomObject()->baselines, ::testing::ElementsAre(baseline->mppDomObject()));
    EXPECT_EQ(baseline->baselineNumber(), 1);
    EXPECT_FALSE(element->mppDomObject()->notes);
    EXPECT_TRUE(log.lines().empty());
    expectAssertion("Unexpected 'child' argument class: MSPEXMLNotesAdapter",
                    [&] { element->addChild(MSPEXMLNotesAdapter::elementWithName("Baseline", nullptr)); });
    expectAssertion("Unexpected 'child' argument class: (null)", [&] { element->addChild(nullptr); });
}

} // namespace brackwater::test
