#include "MPPXMLDOMFilter/Adapters/MSPEXMLCalendarAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLCollectionAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLExtendedAttributeAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLNotesAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLProjectAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLTaskAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLTimephasedDataAdapter.h"
#include "support/ExpectException.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace brackwater::test {

TEST(AdapterFrame, InsertingAlwaysAppends) {
    const auto project = MSPEXMLProjectAdapter::elementWithName("Project", nullptr);
    const auto tasks = project->insertChildElementWithName("Tasks", -5);
    ASSERT_NE(tasks, nullptr);
    const auto first = MSPEXMLTaskAdapter::elementWithName("Task", nullptr);
    const auto second = MSPEXMLTaskAdapter::elementWithName("Task", nullptr);
    tasks->insertChild(first, 7);
    tasks->insertChild(second, 0);
    EXPECT_EQ(project->insertChildElementWithName("CurrencyCode", "EUR", 1000), nullptr);

    EXPECT_THAT(project->mppDomObject()->tasks, ::testing::ElementsAre(first->mppDomObject(), second->mppDomObject()));
    EXPECT_EQ(project->mppDomObject()->currencyCode, "EUR");
}

TEST(AdapterFrame, DropsUnknownNames) {
    const auto data = MSPEXMLTimephasedDataAdapter::elementWithName("TimephasedData", nullptr);
    const auto task = MSPEXMLTaskAdapter::elementWithName("Task", nullptr);
    MSPEXMLAdapter plain("Anything", nullptr);

    EXPECT_EQ(data->addChildElementWithName("Value", "PT8H0M0S"), nullptr);
    EXPECT_EQ(data->addChildElementWithName("Value"), nullptr);
    EXPECT_FALSE(data->hasMppDomObject());
    plain.addChild(task);
    plain.addComment("a comment");
    EXPECT_EQ(task.use_count(), 1);
}

TEST(AdapterFrame, CannotBeCreatedWithoutMapper) {
    expectAssertion("!!! PROHIBITED CONSTRUCTOR CALL: +[MSPEXMLTaskAdapter elementWithName:@\"Task\"]",
                    [] { (void)MSPEXMLTaskAdapter::elementWithName("Task"); });
    expectAssertion("!!! PROHIBITED CONSTRUCTOR CALL: -[MSPEXMLProjectAdapter initWithName:@\"Project\"]",
                    [] { (void)MSPEXMLProjectAdapter::initWithName("Project"); });
    expectAssertion("!!! PROHIBITED CONSTRUCTOR CALL: -[MSPEXMLNotesAdapter initWithName:@\"Notes\" "
                    "stringValue:@\"text\"]",
                    [] { (void)MSPEXMLNotesAdapter::initWithName("Notes", "text"); });
    expectAssertion("!!! PROHIBITED CONSTRUCTOR CALL: -[MSPEXMLTaskAdapter initWithName:@\"Task\" "
                    "stringValue:@\"(null)\"]",
                    [] { (void)MSPEXMLTaskAdapter::initWithName("Task", std::nullopt); });
}

TEST(CollectionAdapter, KeepsAChildWithoutRecordAliveAndAddsNothing) {
    MSPEXMLCollectionAdapter<MPPCalendarWorkWeek> weeks("WorkWeeks", nullptr);
    auto week = MSPEXMLWorkWeekAdapter::elementWithName("WorkWeek", nullptr);
    const std::weak_ptr<MSPEXMLAdapter> alive = week;
    weeks.addChild(week);
    week.reset();

    EXPECT_FALSE(alive.expired());
    EXPECT_TRUE(weeks.collection().empty());
}

TEST(CollectionAdapter, TakesChildrenOnlyThroughAddChild) {
    MSPEXMLCollectionAdapter<MPPTask> tasks("Tasks", nullptr);
    expectAssertion("!!! PROHIBITED CALL: MSPEXMLCollectionAdapter addChildElementWithName:@\"Task\"",
                    [&] { tasks.addChildElementWithName("Task"); });
    expectAssertion("!!! PROHIBITED CALL: MSPEXMLCollectionAdapter addChildElementWithName:@\"Task\" "
                    "stringValue:@\"1\"",
                    [&] { tasks.addChildElementWithName("Task", "1"); });
}

TEST(CollectionAdapter, RejectsRecordsOfAnotherKind) {
    MSPEXMLCollectionAdapter<MPPResource> resources("Resources", nullptr);
    expectAssertion("Unexpected child to add to collection: MSPEXMLTaskAdapter",
                    [&] { resources.addChild(MSPEXMLTaskAdapter::elementWithName("Task", nullptr)); });
    expectAssertion("Unexpected child to add to collection: (null)", [&] { resources.addChild(nullptr); });
}

TEST(ExtendedAttributeAdapter, TakesEachTextOnce) {
    const auto attribute = MSPEXMLExtendedAttributeAdapter::elementWithName("ExtendedAttribute", nullptr);
    EXPECT_FALSE(attribute->isValidAttribute());
    attribute->addChildElementWithName("FieldID", "188743731");
    attribute->addChildElementWithName("FieldName", "Text1");
    EXPECT_TRUE(attribute->isValidAttribute());
    EXPECT_FALSE(attribute->isAttributeName());
    attribute->addChildElementWithName("Alias", "Colour");
    EXPECT_TRUE(attribute->isAttributeName());
    EXPECT_FALSE(attribute->isAttributeValue());
    attribute->addChildElementWithName("Value", "red");
    attribute->addChildElementWithName("Unknown", "dropped");
    attribute->addChildElementWithName("Unknown", "dropped again");

    EXPECT_TRUE(attribute->isAttributeValue());
    EXPECT_EQ(attribute->description(), "MSPEXMLExtendedAttributeAdapter: FieldID='188743731' FieldName='Text1' "
                                        "Alias='Colour' Value='red' Guid='(null)'");
    attribute->addChildElementWithName("Guid", "0");
    for (const std::string name : {"FieldID", "FieldName", "Alias", "Guid", "Value"})
        expectAssertion("ExtendedAttribute " + name + " is already set.",
                        [&] { attribute->addChildElementWithName(name, "again"); });
    EXPECT_EQ(attribute->value(), "red");
}

} // namespace brackwater::test
