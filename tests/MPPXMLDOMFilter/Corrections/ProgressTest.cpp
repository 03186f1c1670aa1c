#include "MPPXMLDOMFilter/Corrections/ProgressPath.h"
#include "MPPXMLDOMFilter/Corrections/SharedWork.h"
#include "MPPXMLDOMFilter/Corrections/WrittenAmounts.h"

#include <gtest/gtest.h>

namespace brackwater {
namespace {

TEST(SharedWork, DependsOnTheKindsOfResources) {
    constexpr auto kStaff = MPPResourceKind::Staff;
    constexpr auto kEquipment = MPPResourceKind::Equipment;
    struct Row {
        const char* what;
        std::vector<WorkShare> shares;
        double effort;
        double duration;
        std::vector<double> work;
    };
    const Row rows[] = {
        {"staff by units", {{kStaff, 1}, {kStaff, 3}}, 4000, 1000, {1000, 3000}},
        {"no units", {{kStaff, 0}}, 4000, 1000, {4000}},
        {"equipment beside staff", {{kStaff, 2}, {kEquipment, 1}}, 20000, 10000, {20000, 10000}},
        {"effort of both", {{kStaff, 2}, {kEquipment, 1}}, 30000, 10000, {20000, 10000}},
        {"equipment alone", {{kEquipment, 1}, {kEquipment, 1}}, 5000, 10000, {2500, 2500}},
        {"material has none", {{kStaff, 1}, {MPPResourceKind::Material, 9}}, 4000, 4000, {4000, 0}},
    };
    for (const Row& row : rows)
        EXPECT_EQ(sharedWork(row.shares, row.effort, row.duration), row.work) << row.what;
}

TEST(ProgressPath, OfASplitTaskSkipsTheGaps) {
    MPPTask task;
    task.startDate = Date{0};
    task.endDate = Date{1000};
    task.duration = 1000;
    task.source = std::make_unique<MPPTaskSource>();
    task.source->segments = {{Date{0}, Date{200}, 0}, {Date{600}, Date{1000}, 0}, {Date{700}, Date{800}, 0}};
    const ProgressPath path(task, nullptr);
    for (const auto& [fraction, stop, resume] : {std::tuple(0.25, 150.0, 150.0), std::tuple(1.0 / 3, 200.0, 600.0),
                                                 std::tuple(0.5, 700.0, 700.0), std::tuple(1.0, 1000.0, 1000.0)}) {
        EXPECT_NEAR(path.momentsOf(fraction).stop.secondsSince1970, stop, 1e-6);
        EXPECT_NEAR(path.momentsOf(fraction).resume.secondsSince1970, resume, 1e-6);
    }
    const auto points = path.pointsOf(0.5);
    ASSERT_EQ(points.size(), 5U);
    EXPECT_NEAR(points[1].percent, 100.0 / 3, 1e-9);
    EXPECT_EQ(points[2].moment, Date{600});
    EXPECT_EQ(points[4].moment, std::nullopt);
}

TEST(WrittenAmounts, ReachOneHundredPercentOnlyWhenAllIsDone) {
    EXPECT_EQ(wholePercent(0.29), 29U);
    EXPECT_EQ(wholePercent(0.005), 1U);
    EXPECT_EQ(wholePercent(0.999), 99U);
    EXPECT_EQ(wholePercent(1.0), 100U);
    EXPECT_EQ(durationInSteps(3605), 3600);
}

} // namespace
} // namespace brackwater
