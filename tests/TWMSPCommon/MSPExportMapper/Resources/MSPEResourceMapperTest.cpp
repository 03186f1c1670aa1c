#include "support/MappedProject.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace brackwater::test {

namespace {

using testing::Contains;
using testing::IsSupersetOf;
using testing::Not;
using testing::StartsWith;

ScenarioBuilder oneResource(std::string_view items, std::string_view xml = "") {
    return ScenarioBuilder::withRoots("r1").resource("r1", items, xml);
}

} // namespace

TEST(ResourceMapper, MapsEveryField) {
    const MappedProject project(
        oneResource("type=Material units-available=0.5 cost-per-use=2.5 cost-per-hour=2.50 email-address=a@example.org",
                    "<name>Bricks\nred</name><note><text><p><run><lit>x</lit></run></p></text></note>"));
    const MPPResource& resource = *project->resources.at(1);
    EXPECT_EQ(resource.name, "Bricks red");
    EXPECT_EQ(resource.type(), 1U);
    EXPECT_FALSE(resource.isCostType());
    EXPECT_EQ(resource.maxUnits, 50.0);
    EXPECT_EQ(resource.costPerUse, 2.5);
    EXPECT_EQ(resource.standartRate, 2.5);
    EXPECT_EQ(resource.emailAddress, "a@example.org");
    EXPECT_EQ(resource.notes, "x\n");
    ASSERT_NE(resource.calendar.record(), nullptr);
    EXPECT_EQ(resource.calendar.record()->ID, 2U) << "the calendar made right behind the project's";
}

TEST(ResourceMapper, MissingFieldsGetDefaults) {
    const MappedProject project(oneResource("type=Equipment"));
    const MPPResource& resource = *project->resources.at(1);
    EXPECT_EQ(resource.name, std::nullopt);
    EXPECT_EQ(resource.type(), 0U);
    EXPECT_EQ(resource.maxUnits, 100.0);
    EXPECT_EQ(resource.emailAddress, std::nullopt);
    EXPECT_EQ(resource.notes, std::nullopt);
}

TEST(ResourceMapper, RepeatedUnitsCountAsAbsentAndOfRepeatedCostsTheLastCounts) {
    const MappedProject project(oneResource("type=Staff units-available=3 units-available=3 cost-per-use=1 "
                                            "cost-per-use=7"));
    EXPECT_EQ(project->resources.at(1)->maxUnits, 100.0);
    EXPECT_EQ(project->resources.at(1)->costPerUse, 7.0);
}

TEST(ResourceMapper, WarnsOfEfficiencyOtherThanOne) {
    constexpr const char* kStart = "WARINING: MS Project doesn't support the Tarnwick 'efficiency' attribute";
    EXPECT_THAT(MappedProject(oneResource("type=Staff name=Anna efficiency=0.8")).log(),
                Contains("WARINING: MS Project doesn't support the Tarnwick 'efficiency' attribute for resources. "
                         "Efficiency=80.00% in resource 'Anna' is ignored."));
    EXPECT_THAT(MappedProject(oneResource("type=Staff efficiency=2")).log(),
                Contains(StartsWith(std::string(kStart) + " for resources. Efficiency=200.00% in resource '(null)'")));
    for (const char* items : {"type=Staff efficiency=1.0", "type=Staff", "type=Group efficiency=0.8"})
        EXPECT_THAT(MappedProject(oneResource(items)).log(), Not(Contains(StartsWith(kStart)))) << items;
}

TEST(ResourceMapper, GroupsAndUnknownTypesHaveACalendarButNoResource) {
    const MappedProject project(ScenarioBuilder::withRoots("r1,r2,r3")
                                    .resource("r1", "type=staff name=Low")
                                    .resource("r2", "name=None")
                                    .resource("r3", "type=Staff name=Anna"));
    ASSERT_EQ(project->resources.size(), 2U);
    EXPECT_EQ(project->resources[1]->name, "Anna");
    EXPECT_EQ(project->resources[1]->ID, 1U) << "no ID is spent on the others";
    EXPECT_EQ(project->resources[1]->calendar.record()->ID, 4U);
    EXPECT_THAT(project.log(), IsSupersetOf({"  Mapping Top Resource id='r-1'", "  Mapping Resource id='r1' name='Low'",
                                             "  Mapping Resource id='r2' name='None'"}));
}

TEST(ResourceMapper, DuplicateUidFails) {
    expectMappingFails(ScenarioBuilder::withRoots("r0,r-2").resource("r0", "type=Staff").resource("r-2", "type=Staff"),
                       "Duplicated Resource UID='' found (zelb Resource id='r-2').");
}

TEST(ResourceMapper, AddsBaselinesOfResourcesThatTheBaselineHas) {
    const auto scenario = ScenarioBuilder::withRoots("r1,r2").resource("r1", "type=Staff").resource("r2", "type=Staff");
    const MappedProject project(scenario, "", {oneResource("type=Staff").document()});
    EXPECT_EQ(project->resources.at(1)->baselines.size(), 1U);
    EXPECT_EQ(project->resources.at(2)->baselines.size(), 0U);
    EXPECT_TRUE(project.logged("  Mapping 1 baselines for Resource ..."));
}

} // namespace brackwater::test
