#include "MPPXMLDOMFilter/Adapters/MSPEXMLAssignmentAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLBaselineAdapters.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLNotesAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLResourceAdapter.h"
#include "support/ExpectException.h"
#include "support/LogCapture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace brackwater::test {

TEST(ResourceAdapter, NumbersTypesTheOtherWayRound) {
    const auto element = MSPEXMLResourceAdapter::elementWithName("Resource", nullptr);
    const MPPResource& resource = *element->mppDomObject();
    element->addChildElementWithName("Type", "0");
    EXPECT_EQ(resource.type(), 1U);
    EXPECT_FALSE(resource.isCostType());
    element->addChildElementWithName("Type", "1");
    EXPECT_EQ(resource.type(), 0U);
    expectAssertion("Unexpected Resource Type: 2", [&] { element->addChildElementWithName("Type", "2"); });
}

TEST(AssignmentAdapter, AcceptsOnlyBaselines) {
    const LogCapture log;
    const auto element = MSPEXMLAssignmentAdapter::elementWithName("Assignment", nullptr);
    const auto baseline = MSPEXMLAssignmentBaselineAdapter::elementWithName("Baseline", nullptr);
    baseline->addChildElementWithName("Number", "1");
    const auto ofTask = MSPEXMLTaskBaselineAdapter::elementWithName("Baseline", nullptr);
    ofTask->addChildElementWithName("Number", "2");
    element->addChild(baseline);
    element->addChild(MSPEXMLNotesAdapter::elementWithName("Notes", nullptr, "dropped"));

    EXPECT_THAT(element->mppDomObject()->baselines, ::testing::ElementsAre(baseline->mppDomObject()));
    EXPECT_EQ(baseline->baselineNumber(), 1);
    EXPECT_EQ(ofTask->baselineNumber(), 2);
    EXPECT_FALSE(element->mppDomObject()->notes);
    EXPECT_TRUE(log.lines().empty());
    expectAssertion("Unexpected 'child' argument class: MSPEXMLNotesAdapter",
                    [&] { element->addChild(MSPEXMLNotesAdapter::elementWithName("Baseline", nullptr)); });
    expectAssertion("Unexpected 'child' argument class: (null)", [&] { element->addChild(nullptr); });
}

} // namespace brackwater::test
