#include "MPPXMLDOMFilter/Adapters/MSPEXMLCollectionAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLProjectAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLTaskAdapter.h"
#include "support/ExpectException.h"
#include "support/LogCapture.h"

#include <gtest/gtest.h>

namespace brackwater::test {

namespace {

class ProjectAdapter : public ::testing::Test {
protected:
    void set(std::string_view name, ElementText text) {
        EXPECT_EQ(element->addChildElementWithName(name, text), nullptr);
    }

    std::shared_ptr<MSPEXMLProjectAdapter> element = MSPEXMLProjectAdapter::elementWithName("Project", nullptr);
    MPPProject& project = *element->mppDomObject();
    LogCapture log;
};

} // namespace

TEST_F(ProjectAdapter, ParsesDoubtfulTextsByTheRulesOfTheFormat) {
    set("CurrencySymbolPosition", "7");
    EXPECT_EQ(project.currencySymbolPosition, 0);
    set("CurrencySymbolPosition", "2");
    set("CurrencySymbolPosition", "-1");
    EXPECT_EQ(project.currencySymbolPosition, 0);
    set("ScheduleFromStart", "0");
    EXPECT_FALSE(project.scheduleFromStart);
    set("ScheduleFromStart", "maybe");
    EXPECT_TRUE(project.scheduleFromStart);
    set("StartDate", std::nullopt);
    EXPECT_FALSE(project.startDate);
    set("CurrencySymbol", std::nullopt);
    EXPECT_FALSE(project.currencySymbol);
    set("NewTasksAreManual", "1");
    set("ConstraintType", "4");
    EXPECT_EQ(project.constraintType, 0);
}

TEST_F(ProjectAdapter, NeedsTheSummaryInformationForItsTitle) {
    project.summaryInfo = nullptr;
    expectAssertion("Project Summary Info has not been created yet.", [&] { set("Title", "Harbour"); });
}

TEST_F(ProjectAdapter, AcceptsOnlyTheNamespaceOfTheVocabulary) {
    element->addNamespace("http://schemas.microsoft.com/project");
    expectAssertion("Incorrect namespace: \"urn:other\"", [&] { element->addNamespace("urn:other"); });
}

TEST_F(ProjectAdapter, AcceptsOnlyCalendarsAsChild) {
    element->addChild(std::make_shared<MSPEXMLCollectionAdapter<MPPCalendar>>("Calendars", nullptr));
    EXPECT_TRUE(project.baseCalendars.empty());
    expectAssertion("Unexpected object of class 'MSPEXMLCollectionAdapter' to add as a child to the project.", [&] {
        element->addChild(std::make_shared<MSPEXMLCollectionAdapter<MPPCalendar>>("Calendar", nullptr));
    });
    expectAssertion("Unexpected object of class 'MSPEXMLTaskAdapter' to add as a child to the project.",
                    [&] { element->addChild(MSPEXMLTaskAdapter::elementWithName("Calendars", nullptr)); });
}

} // namespace brackwater::test
