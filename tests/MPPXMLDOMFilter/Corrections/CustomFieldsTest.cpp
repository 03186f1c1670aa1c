#include "MPPXMLDOMFilter/Corrections/CustomFields.h"

#include "MPPXMLDOMFilter/Corrections/ResourceInitials.h"
#include "MPPXMLDOMFilter/Corrections/TopTask.h"
#include "MPPXMLDOMFilter/Model/MPPProject.h"

#include <gmock/gmock.h>

namespace brackwater::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CustomFields : public testing::Test {
protected:
    MPPTask& addTask(MPPSourceFields fields) {
        project.tasks.push_back(std::make_shared<MPPTask>());
        MPPTask& task = *project.tasks.back();
        task.source = std::make_unique<MPPTaskSource>();
        task.source->fields = std::move(fields);
        return task;
    }

    MPPProject project;
};

TEST_F(CustomFields, KeyIsOneFieldOfAllRecordsOfAKind) {
    const MPPTask& first = addTask({{"Trade", "Masonry"}, {"Floor", "Ground"}});
    const MPPTask& second = addTask({{"Floor", "Upper"}, {"Empty", ""}, {"Colour", "red"}, {"Colour", "blue"}});
    project.resources.push_back(std::make_shared<MPPResource>());
    project.resources[0]->source = std::make_unique<MPPResourceSource>();
    project.resources[0]->source->fields = {{"Floor", "None"}};
    project.customTaskFieldNames = {"left", "over"};
    numberCustomFields(project);
    EXPECT_THAT(project.customTaskFieldNames, ElementsAre("Trade", "Floor", "Colour"));
    EXPECT_THAT(first.customFieldValues, ElementsAre("Masonry", "Ground"));
    EXPECT_THAT(second.customFieldValues, ElementsAre("", "Upper", "blue"));
    EXPECT_THAT(project.customResourceFieldNames, ElementsAre("Floor"));
    EXPECT_THAT(project.resources[0]->customFieldsText, ElementsAre("None"));
}

TEST_F(CustomFields, KeysBeyondThirtyAreLeftOut) {
    MPPSourceFields fields;
    for (int i = 0; i < 32; ++i)
        fields.emplace_back(std::to_string(i), "a");
    const MPPTask& task = addTask(std::move(fields));
    const MPPTask& other = addTask({{"31", "b"}, {"29", "b"}});
    numberCustomFields(project);
    EXPECT_EQ(project.customTaskFieldNames.size(), 30U);
    EXPECT_EQ(task.customFieldValues.size(), 30U);
    EXPECT_EQ(other.customFieldValues.size(), 30U);
    EXPECT_EQ(other.customFieldValues.back(), "b");
}

TEST_F(CustomFields, LongAliasesAreTruncatedAndStayUnique) {
    const std::string longKey(49, 'x');
    addTask({{longKey + "\U0001F600 one", "a"}, {longKey + "ä two", "b"}, {longKey + "ä three", "c"}});
    numberCustomFields(project);
    EXPECT_THAT(project.customTaskFieldNames, ElementsAre(longKey, longKey + "ä", longKey.substr(1) + " 2"));
}

TEST_F(CustomFields, InitialsAreTheFirstCharacterOfAName) {
    const std::pair<std::string, std::string> cases[] = {
        {"Ann", "A"}, {"Östen", "Ö"}, {"\U0001F600 Zoe", "\U0001F600"}};
    for (const auto& [name, initials] : cases) {
        project.resources = {std::make_shared<MPPResource>()};
        project.resources[0]->name = name;
        addResourceInitials(project);
        EXPECT_EQ(project.resources[0]->initials, initials);
    }
}

TEST_F(CustomFields, ProjectRowKeepsThoseOfTheTopTask) {
    addTask({{"Phase", "1"}}).notes = "About the plan\n";
    const std::shared_ptr<MPPTask> top = project.tasks.front();
    project.tasks.clear();
    project.topTask = top.get();
    keepTopTask(project);
    numberCustomFields(project);
    EXPECT_EQ(project.notes, "About the plan\n");
    EXPECT_THAT(project.customFieldValues, ElementsAre("1"));
    EXPECT_THAT(project.customTaskFieldNames, ElementsAre("Phase"));
}

} // namespace
} // namespace brackwater::test
