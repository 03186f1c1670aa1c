#include "TWMSPCommon/MSPExportMapper/Tasks/MSPETaskConstraint.h"

#include "TWMSPCommon/MSPExportMapper/Tasks/MSPEScheduledTaskInfo.h"
#include "TWMSPCommon/MSPImportMapper/MSPIUtilities.h"
#include "support/ScenarioBuilder.h"

#include <gtest/gtest.h>

#include <ostream>

namespace brackwater::test {

namespace {

// One row: the task's items in the source, whether the project is scheduled from its start, and the constraint with its
// day of June 2012 (0: no date).
struct Row {
    const char* items;
    bool projectFromStart;
    int type; ///< -1: no constraint
    int day;

    // The default would print all bytes, including uninitialized ones.
    friend void PrintTo(const Row& row, std::ostream* out) { *out << row.items; }
};

std::string withDates(std::string_view shorthand) {
    // "locked-start-date=@2" means a date on the second of June.
    std::string text;
    for (std::size_t i = 0; i < shorthand.size(); ++i) {
        if (shorthand[i] == '@')
            text += std::string("2012-06-0") + shorthand[++i] + "T00:00:00Z";
        else
            text += shorthand[i];
    }
    return text;
}

class TaskConstraint : public testing::TestWithParam<Row> {};

constexpr bool kFromStart = true;
constexpr bool kFromEnd = false;

} // namespace

TEST_P(TaskConstraint, FollowsTheTable) {
    const Row& row = GetParam();
    const auto document =
        documentOf(ScenarioBuilder().topTask("-").topResource("-").task("t1", withDates(row.items)).text());
    const MSPEScheduledTaskInfo info(*document->rootElement().firstChildElement());
    const auto constraint = MSPETaskConstraint::ofTask(info, row.projectFromStart);

    ASSERT_EQ(constraint.has_value(), row.type >= 0);
    if (!constraint)
        return;
    EXPECT_EQ(static_cast<int>(constraint->type), row.type);
    EXPECT_EQ(constraint->hasDate, row.day > 0);
    if (row.day > 0) {
        EXPECT_EQ(constraint->date, MSPIUtilities::zelbToMppDateTime("2012-06-0" + std::to_string(row.day) +
                                                                     (row.day == 1 ? "T08:00:00Z" : "T00:00:00Z")));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, TaskConstraint,
    testing::Values(Row{"locked-start-date=@2 locked-end-date=@3", kFromStart, 2, 2},
                    Row{"locked-start-date=@2 locked-end-date=@3", kFromEnd, 3, 3},
                    Row{"locked-start-date=@2 locked-end-date=@3 schedule-type=asap", kFromEnd, 2, 2},
                    Row{"locked-start-date=@2 locked-end-date=@3 schedule-type=alap", kFromStart, 3, 3},
                    Row{"locked-start-date=@2 start-constraint-date=@4 schedule-type=alap", kFromEnd, 2, 2},
                    Row{"locked-end-date=@3 start-constraint-date=@4 schedule-type=asap", kFromStart, 3, 3},
                    Row{"start-constraint-date=@4", kFromStart, 4, 4}, Row{"start-constraint-date=@4", kFromEnd, 5, 4},
                    Row{"end-constraint-date=@5", kFromStart, 6, 5}, Row{"end-constraint-date=@5", kFromEnd, 7, 5},
                    Row{"start-constraint-date=@4 schedule-type=alap", kFromStart, 5, 4},
                    Row{"start-constraint-date=@4 schedule-type=asap", kFromEnd, 4, 4},
                    Row{"start-no-earlier-than=@6 schedule-type=alap", kFromEnd, 4, 6},
                    Row{"end-no-earlier-than=@6 schedule-type=alap", kFromEnd, 6, 6},
                    Row{"start-no-later-than=@7 schedule-type=asap", kFromStart, 5, 7},
                    Row{"end-no-later-than=@7 schedule-type=asap", kFromStart, 7, 7},
                    Row{"start-no-earlier-than=@6 end-no-later-than=@7", kFromStart, 4, 6},
                    Row{"start-no-earlier-than=@6 end-no-later-than=@7", kFromEnd, 7, 7},
                    Row{"schedule-type=asap leveled-start=@8", kFromEnd, 0, 0},
                    Row{"schedule-type=alap leveled-start=@8", kFromStart, 1, 0},
                    Row{"leveled-start=@8", kFromStart, 4, 1}, Row{"leveled-start=@8", kFromEnd, 5, 1},
                    Row{"leveled-start=@8 type=group", kFromStart, -1, 0},
                    Row{"leveled-start=@8 type=milestone", kFromStart, 4, 1}, Row{"", kFromStart, -1, 0},
                    Row{"", kFromEnd, -1, 0}));

} // namespace brackwater::test
