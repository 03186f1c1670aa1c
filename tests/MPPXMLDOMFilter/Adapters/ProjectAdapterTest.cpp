#include "MPPXMLDOMFilter/Adapters/MSPEXMLAssignmentAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLCollectionAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLExtendedAttributeAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLProjectAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLResourceAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLTaskAdapter.h"
#include "TWMSPCommon/MSPImportMapper/MSPIUtilities.h"
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

TEST_F(ProjectAdapter, StoresItsVocabularyWithoutAWordInTheLog) {
    set("CalendarUID", "1");
    set("CurrencyCode", "EUR");
    set("CurrencyDigits", "3 digits");
    set("CurrencySymbol", "€");
    set("CurrencySymbolPosition", "3");
    set("FinishDate", "2012-06-30T17:00:00");
    set("HonorConstraints", "0");
    set("ScheduleFromStart", "no");
    set("StartDate", "2012-06-01T08:00:00");
    set("Title", "Harbour");
    set("WeekStartDay", "2");

    EXPECT_EQ(project.calendar.proxyText(), "1");
    EXPECT_EQ(project.currencyCode, "EUR");
    EXPECT_EQ(project.currencyDigits, 3U);
    EXPECT_EQ(project.currencySymbol, "€");
    EXPECT_EQ(project.currencySymbolPosition, 3);
    EXPECT_EQ(project.endDate, MSPIUtilities::mspdiToMppDateTime("2012-06-30T17:00:00"));
    EXPECT_FALSE(project.honorConstraints);
    EXPECT_FALSE(project.scheduleFromStart);
    EXPECT_EQ(project.startDate, MSPIUtilities::mspdiToMppDateTime("2012-06-01T08:00:00"));
    EXPECT_EQ(project.title, "Harbour");
    EXPECT_EQ(project.summaryInfo->title, "Harbour");
    EXPECT_EQ(project.weekStartDay, 2);
    EXPECT_TRUE(log.lines().empty());
}

TEST_F(ProjectAdapter, ReadsDoubtfulTextsAsTheFormatTells) {
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

TEST_F(ProjectAdapter, TakesTheVocabulariesNamespaceOnly) {
    element->addNamespace("http://schemas.microsoft.com/project");
    expectAssertion("Incorrect namespace: \"urn:other\"", [&] { element->addNamespace("urn:other"); });
}

TEST_F(ProjectAdapter, CollectsIntoTheRecordsLists) {
    const auto tasks = element->addChildElementWithName("Tasks");
    const auto resources = element->addChildElementWithName("Resources");
    const auto assignments = element->addChildElementWithName("Assignments");
    const auto attributes = element->addChildElementWithName("ExtendedAttributes");
    tasks->addChild(MSPEXMLTaskAdapter::elementWithName("Task", nullptr));
    resources->addChild(MSPEXMLResourceAdapter::elementWithName("Resource", nullptr));
    assignments->addChild(MSPEXMLAssignmentAdapter::elementWithName("Assignment", nullptr));
    const auto attribute = MSPEXMLExtendedAttributeAdapter::elementWithName("ExtendedAttribute", nullptr);
    attributes->addChild(attribute);
    // The attribute in the model is the element's own: it may still be filled.
    attribute->addChildElementWithName("Alias", "Colour");
    // Asked for again, the definitions go on, the other lists begin anew.
    element->addChildElementWithName("ExtendedAttributes")
        ->addChild(MSPEXMLExtendedAttributeAdapter::elementWithName("ExtendedAttribute", nullptr));
    (void)element->addChildElementWithName("Resources");

    EXPECT_EQ(tasks->name(), "Tasks");
    EXPECT_EQ(project.tasks.size(), 1U);
    EXPECT_EQ(project.resources.size(), 0U);
    EXPECT_EQ(project.assignments.size(), 1U);
    ASSERT_EQ(project.extendedAttributes.size(), 2U);
    EXPECT_EQ(project.extendedAttributes.front()->alias, "Colour");
    EXPECT_EQ(element->addChildElementWithName("Calendars"), nullptr);
}

TEST_F(ProjectAdapter, AcceptsNoChildButTheCalendars) {
    element->addChild(std::make_shared<MSPEXMLCollectionAdapter<MPPCalendar>>("Calendars", nullptr));
    EXPECT_TRUE(project.baseCalendars.empty());
    expectAssertion("Unexpected object of class 'MSPEXMLCollectionAdapter' to add as a child to the project.", [&] {
        element->addChild(std::make_shared<MSPEXMLCollectionAdapter<MPPCalendar>>("Calendar", nullptr));
    });
    expectAssertion("Unexpected object of class 'MSPEXMLTaskAdapter' to add as a child to the project.",
                    [&] { element->addChild(MSPEXMLTaskAdapter::elementWithName("Calendars", nullptr)); });
}

} // namespace brackwater::test
