#include "TWMSPCommon/MSPExportMapper/Common/MSPEUserDataMapper.h"

#include "MPPXMLDOMFilter/Adapters/MSPEXMLExtendedAttributeAdapter.h"
#include "support/MappedProject.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace brackwater::test {

namespace {

using testing::ElementsAre;

std::string pair(std::string_view key, std::string_view value) {
    return std::string("<key>").append(key).append("</key><string>").append(value).append("</string>");
}

std::string userData(std::string_view content) {
    return std::string("<user-data>").append(content).append("</user-data>");
}

// Field ids and values for some user data; the project's definitions are added to `definitions`.
std::vector<std::string> fieldsOf(const std::string& content, bool isTask,
                                  std::vector<std::string>* definitions = nullptr) {
    MSPEMapper mapper(nullptr, tableOfContents(), {}, std::nullopt);
    const auto project = MSPEXMLProjectAdapter::elementWithName("Project", &mapper);
    mapper.setMspdiProject(project);
    const auto document = documentOf(userData(content));
    std::vector<std::string> fields;
    for (const auto& attribute :
         MSPEUserDataMapper(&mapper, isTask).newExtendedAttributesFromUserData(document->rootElement()))
        fields.push_back(*attribute->fieldID() + "=" + *attribute->value());
    if (definitions)
        for (const auto& definition : project->mppDomObject()->extendedAttributes)
            definitions->push_back(*definition->fieldID + " " + *definition->fieldName + " " + *definition->alias +
                                   " " + *definition->guid);
    return fields;
}

} // namespace

TEST(UserDataMapper, KeysGetTextFieldsByPosition) {
    std::vector<std::string> definitions;
    EXPECT_THAT(fieldsOf(pair("Color", "red\nish") + pair("Si\nze", "L"), true, &definitions),
                ElementsAre("188743731=red ish", "188743734=L"));
    EXPECT_THAT(definitions, ElementsAre("188743731 Text1 Color 00000000-0000-0000-0000-000000000000",
                                         "188743734 Text2 Si ze 00000000-0000-0000-0000-000000000000"));
    EXPECT_THAT(fieldsOf(pair("Color", "red") + pair("Size", "L"), false), ElementsAre("205520904=red", "205520907=L"));
}

TEST(UserDataMapper, RepeatedKeyKeepsItsField) {
    std::vector<std::string> definitions;
    EXPECT_THAT(fieldsOf(pair("a", "1") + pair("a", "2") + pair("b", "3"), true, &definitions),
                ElementsAre("188743731=1", "188743731=2", "188743734=3"));
    EXPECT_EQ(definitions.size(), 2U);
}

TEST(UserDataMapper, KeysAndStringsMatchByPositionNotByAdjacency) {
    EXPECT_THAT(fieldsOf("<key>a</key><key>b</key><x/><string>1</string><string>2</string>", true),
                ElementsAre("188743731=1", "188743734=2"));
    EXPECT_TRUE(fieldsOf("", true).empty());
}

TEST(UserDataMapper, FailsForUnequalNumbersAndWithoutAProject) {
    expectAssertion("Keys and Values mismatch number.", [] { fieldsOf("<key>a</key>", true); });
    expectAssertion("Keys and Values mismatch number.", [] { fieldsOf("<string>a</string>", true); });
    MSPEMapper mapper(nullptr, tableOfContents(), {}, std::nullopt);
    expectAssertion("Failed to get Project XML document from the Mapper.",
                    [&] { MSPEUserDataMapper(&mapper, true).addExtendedAttribute("a"); });
}

TEST(UserDataMapper, ManyKeysTakeLinearTime) {
    std::string content;
    constexpr std::size_t kMany = 50'000;
    for (std::size_t i = 0; i < kMany; ++i)
        content += pair("k" + std::to_string(i), "v");
    EXPECT_EQ(fieldsOf(content, true).size(), kMany);
}

TEST(UserDataMapper, ProjectHasOneNamePerValue) {
    const MappedProject project(ScenarioBuilder::withRoots("r1", "t1,t2")
                                    .resource("r1", "type=Staff", userData(pair("Team", "A")))
                                    .task("t1", "", userData(pair("Color", "red") + pair("Size", "L")))
                                    .task("t2", "", userData(pair("Size", "M"))));
    // A field has the last alias defined: t2 renamed Text1.
    EXPECT_THAT(project->customTaskFieldNames, ElementsAre("Size", "Size", "Size"));
    EXPECT_THAT(project->tasks.at(1)->customFieldValues, ElementsAre("red", "L"));
    EXPECT_THAT(project->tasks.at(2)->customFieldValues, ElementsAre("M"));
    EXPECT_THAT(project->customResourceFieldNames, ElementsAre("Team"));
    EXPECT_THAT(project->resources.at(1)->customFieldsText, ElementsAre("A"));
}

} // namespace brackwater::test
