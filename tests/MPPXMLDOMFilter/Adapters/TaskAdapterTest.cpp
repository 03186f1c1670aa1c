#include "MPPXMLDOMFilter/Adapters/MSPEXMLBaselineAdapters.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLNotesAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLPredecessorLinkAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLTaskAdapter.h"
#include "support/ExpectException.h"
#include "support/LogCapture.h"

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

TEST_F(TaskAdapter, TruncatesWorkToWholeHoursButNotDurations) {
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

TEST_F(TaskAdapter, RejectsAChildWhoseClassDoesNotMatchItsName) {
    expectAssertion("Unexpected 'child' argument class: (null)", [&] { element->addChild(nullptr); });
    expectAssertion("Unexpected 'child' argument class: MSPEXMLResourceBaselineAdapter",
                    [&] { element->addChild(MSPEXMLResourceBaselineAdapter::elementWithName("Baseline", nullptr)); });
    for (const char* name : {"ExtendedAttribute", "Notes"})
        expectAssertion("Unexpected 'child' argument class: MSPEXMLTaskBaselineAdapter",
                        [&] { element->addChild(MSPEXMLTaskBaselineAdapter::elementWithName(name, nullptr)); });
}

TEST_F(TaskAdapter, CreatesLinksWithConsecutiveIDs) {
    const auto made = element->addChildElementWithName("PredecessorLink");
    const auto first = std::dynamic_pointer_cast<MSPEXMLPredecessorLinkAdapter>(made);
    const auto second = MSPEXMLPredecessorLinkAdapter::elementWithName("PredecessorLink", nullptr);

    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->name(), "PredecessorLink");
    EXPECT_GT(first->mppDomObject()->ID, 0U);
    EXPECT_EQ(second->mppDomObject()->ID, first->mppDomObject()->ID + 1);
}

TEST(PredecessorLinkAdapter, AcceptsOnlyPercentageLagFormats) {
    for (const char* format : {"19", "20"}) {
        const auto element = MSPEXMLPredecessorLinkAdapter::elementWithName("PredecessorLink", nullptr);
        element->addChildElementWithName("LagFormat", format);
        EXPECT_TRUE(element->mppDomObject()->isPercentage);
    }
    const auto element = MSPEXMLPredecessorLinkAdapter::elementWithName("PredecessorLink", nullptr);
    expectAssertion("Unexpected Lag Format: 7", [&] { element->addChildElementWithName("LagFormat", "7"); });
    expectAssertion("Unexpected Lag Format: 0", [&] { element->addChildElementWithName("LagFormat", std::nullopt); });
}

} // namespace brackwater::test
