#include "mppinspect/GanttPage.h"

#include "mppinspect/CriticalPath.h"
#include "mppinspect/TimeScale.h"
#include "mppinspect/WorkingDays.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace brackwater::test {
namespace {

using inspect::DaySpan;
using inspect::freeDays;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr int kMonday = 15'402; // 2026-03-02

inspect::Date at(int day, int hour) {
    return {static_cast<std::uint16_t>(day), static_cast<std::uint16_t>(hour * 600)};
}

std::size_t timesIn(std::string_view text, std::string_view words) {
    std::size_t count = 0;
    for (std::size_t at = 0; (at = text.find(words, at)) != std::string_view::npos; ++at)
        ++count;
    return count;
}

class GanttPage : public testing::Test {
protected:
    inspect::Task& task(std::uint32_t id, std::string title, int firstDay, int lastDay) {
        inspect::Task task;
        task.uniqueId = task.id = id;
        task.title = std::move(title);
        task.depth = 1;
        task.start = at(firstDay, 8);
        task.finish = at(lastDay, 17);
        return project.tasks.emplace_back(std::move(task));
    }
    void link(std::uint32_t from, std::uint32_t to, std::uint16_t type = 1) {
        inspect::Link link;
        link.predecessor = from;
        link.successor = to;
        link.type = type;
        project.links.push_back(link);
    }
    std::string page(const inspect::GanttOptions& options = {}) const {
        std::string text;
        writeGanttPage(
            project, [&text](std::string_view piece) { text += piece; }, options);
        return text;
    }
    /// How often the chart, below the definitions and the legend, has the words.
    std::size_t drawn(std::string_view words, const inspect::GanttOptions& options = {}) const {
        const std::string text = page(options);
        return timesIn(std::string_view(text).substr(text.find("class=\"chart\"")), words);
    }

    inspect::ProjectFile project;
};

TEST_F(GanttPage, LetsNoTextOfThePlanBecomeMarkup) {
    const std::string hostile = "</td></table><script>alert(1)</script><img src=\"http://x\" onerror='y'>&";
    inspect::Task& walls = task(1, hostile, kMonday, kMonday);
    walls.notes = hostile + "\n\x1B[2J\xC2\x9B" + "end";
    walls.baselines[0].start = walls.start;
    project.properties.push_back({0x02400008, "title", hostile});
    project.resources.resize(1);
    project.resources[0].uniqueId = 1;
    project.resources[0].name = hostile;
    project.assignments.resize(1);
    project.assignments[0].taskId = 1;
    project.assignments[0].resourceId = 1;
    project.calendars.resize(1);
    project.calendars[0].name = hostile;
    project.calendars[0].exceptions.push_back({kMonday, kMonday, {}, hostile});
    const std::string text = page();
    EXPECT_THAT(text, Not(HasSubstr("<script")));
    EXPECT_THAT(text, Not(HasSubstr("<img")));
    EXPECT_THAT(text, HasSubstr("&lt;script&gt;alert(1)&lt;/script&gt;&lt;img src=&quot;http://x&quot; "
                                "onerror=&#39;y&#39;&gt;&amp;&#10; [2J end"));
    EXPECT_EQ(timesIn(text, "<meta http-equiv=\"Content-Security-Policy\" "
                            "content=\"default-src 'none'; style-src 'unsafe-inline'; "
                            "base-uri 'none'; form-action 'none'\">"),
              1U);
}

TEST_F(GanttPage, DrawsLinksOfAllTypesButNoneThatLacksAnEnd) {
    task(1, "a", kMonday, kMonday + 1);
    task(2, "b", kMonday + 2, kMonday + 3);
    inspect::Task& open = task(3, "without dates", 0, 0);
    open.start.reset();
    open.finish.reset();
    link(1, 3);
    link(1, 99);
    link(2, 2);
    EXPECT_EQ(drawn("href=\"#"), 0U);
    const std::vector<std::string_view> tips{"#l", "#d", "#l", "#r", "#r"}; // a type that is unknown as start to start
    for (std::uint16_t type = 0; type < tips.size(); ++type) {
        project.links.clear();
        link(1, 2, type);
        EXPECT_EQ(drawn("href=\"#"), 1U) << type;
        EXPECT_EQ(drawn("href=\"" + std::string(tips[type])), 1U) << type;
    }
}

TEST_F(GanttPage, DrawsOnlyTheEndsOfLinksWhereManyWouldCrossALine) {
    for (std::uint32_t id = 1; id <= 1000; ++id)
        task(id, "Walls", kMonday + static_cast<int>(id), kMonday + static_cast<int>(id) + 5);
    for (std::uint32_t id = 1; id <= 1000; ++id)
        link(id, id * 7919 % 1000 + 1);
    const std::string text = page();
    EXPECT_THAT(text, HasSubstr("only its ends"));
    for (std::size_t row = text.find("<div class=\"row"); row != std::string::npos;) {
        const std::size_t next = text.find("<div class=\"row", row + 1);
        EXPECT_LE(timesIn(std::string_view(text).substr(row, next - row), " 0V22"), 6U);
        row = next;
    }
}

TEST_F(GanttPage, FoldsWhatStandsDeeperAndNestsWhateverTheDepths) {
    for (const int depth : {1, 2, 3, 2, 1})
        task(static_cast<std::uint32_t>(project.tasks.size() + 1), "t", kMonday, kMonday).depth = depth;
    EXPECT_EQ(drawn("<details open><summary class=\"row"), 2U);
    for (int i = 0; i < 600; ++i)
        task(static_cast<std::uint32_t>(project.tasks.size() + 1), "t", kMonday, kMonday).depth = i % 300 * (i % 2 + 1);
    EXPECT_EQ(drawn("<details"), drawn("</details>"));
    std::size_t depth = 0, deepest = 0;
    const std::string text = page();
    for (std::size_t at = 0; (at = text.find("details", at)) != std::string::npos; ++at) {
        text[at - 1] == '<' ? ++depth : (text[at - 1] == '/' ? --depth : 0);
        deepest = std::max(deepest, depth);
    }
    EXPECT_LE(deepest, 24U);
}

TEST_F(GanttPage, DrawsThePiecesOfASplitTaskAndItsProgressFromTheFirstOn) {
    inspect::Task& walls = task(1, "Walls", kMonday, kMonday + 9);
    walls.pieces = {{at(kMonday, 8), at(kMonday + 2, 17)}, {at(kMonday + 7, 8), at(kMonday + 9, 17)}};
    walls.percentComplete = 50;
    walls.deadline = at(kMonday + 9, 17);
    EXPECT_EQ(drawn("<rect class=\"b"), 2U);
    EXPECT_EQ(drawn("<rect class=\"p"), 1U);
    EXPECT_EQ(drawn("class=\"gap\""), 1U);
    EXPECT_EQ(drawn("class=\"dead\""), 1U);
}

TEST_F(GanttPage, HasTodaysLineWhereTodayIsOnTheAxis) {
    task(1, "Walls", kMonday, kMonday + 9);
    EXPECT_EQ(drawn("class=\"now\""), 0U);
    EXPECT_GT(drawn("class=\"now\"", {{}, {}, {}, kMonday}), 0U);
    EXPECT_EQ(drawn("class=\"now\"", {{}, {}, kMonday - 1, kMonday}), 0U);
    EXPECT_EQ(drawn("<rect class=\"b", {{}, 0, kMonday - 1, {}}), 0U);
}

TEST(CriticalPath, FollowsLinksWithoutSlackWhereTheFileHasNoLateDates) {
    inspect::ProjectFile project;
    const auto add = [&](std::uint32_t id, inspect::Date start, inspect::Date finish) -> inspect::Task& {
        inspect::Task& task = project.tasks.emplace_back();
        task.uniqueId = id;
        task.start = start;
        task.finish = task.lateFinish = finish;
        return task;
    };
    const auto link = [&](std::uint32_t from, std::uint32_t to, std::int32_t lagDays = 0) {
        inspect::Link& added = project.links.emplace_back();
        added.predecessor = from;
        added.successor = to;
        added.type = 1;
        added.lag = {lagDays * 4'800, 7};
    };
    add(0, at(kMonday, 8), at(kMonday + 30, 17));
    add(1, at(kMonday, 8), at(kMonday + 4, 17)); // until Friday
    add(2, at(kMonday, 8), at(kMonday + 3, 17));
    add(3, at(kMonday + 7, 8), at(kMonday + 8, 17)); // a group, from Monday on
    add(4, at(kMonday + 7, 8), at(kMonday + 8, 17)).parentId = 3;
    add(5, at(kMonday + 7, 8), at(kMonday + 7, 17)).parentId = 3;
    add(6, at(kMonday + 10, 8), at(kMonday + 11, 17)); // a day after the group
    add(7, at(kMonday, 8), at(kMonday + 11, 17)).percentComplete = 100;
    link(1, 3);
    link(2, 3);
    link(3, 6, 1);
    EXPECT_THAT(inspect::criticalTasks(project), testing::UnorderedElementsAre(1, 4, 6));
    project.tasks[2].lateFinish = at(kMonday + 4, 17); // from now on the late dates tell it
    EXPECT_THAT(inspect::criticalTasks(project), testing::UnorderedElementsAre(1, 4, 5, 6));
}

TEST_F(GanttPage, LeavesOutTheProjectsOwnRowAndKeepsTheOrderOfTheSheet) {
    task(0, "House", kMonday, kMonday + 9);
    task(7, "second", kMonday, kMonday).id = 2;
    task(3, "first", kMonday, kMonday).id = 1;
    const std::string text = page();
    EXPECT_THAT(text, HasSubstr("<h1 dir=\"auto\">House</h1>"));
    EXPECT_LT(text.find("<bdi>first</bdi>"), text.find("<bdi>second</bdi>"));
    EXPECT_EQ(text.find("<bdi>House</bdi>"), std::string::npos);
}

TEST_F(GanttPage, OfNoTasksTellsThatAndTheCalendars) {
    inspect::Calendar& calendar = project.calendars.emplace_back();
    calendar.name = "Night";
    calendar.hasOwnHours = true;
    calendar.week[1].emplace();
    inspect::CalendarException& exception = calendar.exceptions.emplace_back();
    exception.recurrence.emplace().every = 3;
    const std::string text = page();
    for (const char* const words : {"The file holds no tasks.", "Sun default hours, Mon free, Tue-Sat default hours",
                                    "<td>free, every 3 days</td>"})
        EXPECT_THAT(text, HasSubstr(words));
    EXPECT_THAT(text, Not(HasSubstr("class=\"chart\"")));
}

TEST_F(GanttPage, GrowsWithThePlanAndNoFaster) {
    const auto sizeWith = [this](std::uint32_t tasks) {
        project = {};
        for (std::uint32_t id = 1; id <= tasks; ++id) {
            task(id, "Walls", kMonday + static_cast<int>(id % 700), kMonday + static_cast<int>(id % 700) + 5);
            if (id > 1)
                link(1, id); // every one from the first page to another
        }
        return page().size();
    };
    const std::size_t some = sizeWith(2000), twice = sizeWith(4000);
    EXPECT_LT(twice, some * 21 / 10);
    EXPECT_LT(twice, 4000U * 900);
}

TEST_F(GanttPage, OfDatesFarApartStaysReadableByABrowser) {
    task(1, "early", 0, 1);
    task(2, "late", 65'534, 65'535).percentComplete = 65'535;
    project.tasks[0].finish = inspect::Date{0, 65'535};
    EXPECT_THAT(page(), HasSubstr("1980s"));
    EXPECT_LT(page().size(), 100'000U);
}

TEST(TimeScale, PutsDatesInOrderAndCellsSideBySide) {
    for (const int days : {1, 30, 200, 1000, 5000, 60'000}) {
        std::vector<inspect::Task> tasks(1);
        tasks[0].uniqueId = 1;
        tasks[0].start = at(kMonday - 10'000, 8);
        tasks[0].finish = at(std::min(kMonday - 10'000 + days, 65'535), 17);
        const inspect::TimeScale scale(tasks, {});
        EXPECT_GT(scale.at(*tasks[0].start), 0) << days;
        EXPECT_LT(scale.at(*tasks[0].start), scale.at(*tasks[0].finish)) << days;
        EXPECT_LT(scale.at(*tasks[0].finish), 100) << days;
        EXPECT_LE(scale.width(), 800) << days; // fits on a screen beside the table
        for (const double width : {scale.width(), 400.0}) {
            const auto cells = scale.axis(width).lower;
            double right = 0;
            for (const auto& cell : cells) {
                EXPECT_LT(std::abs(cell.left - right), 1e-6) << days;
                right = cell.right;
            }
            EXPECT_LT(std::abs(right - 100), 1e-6) << days;
            EXPECT_LE(static_cast<double>(cells.size()), width / 18 + 2) << days;
        }
    }
}

TEST(GanttOptions, AreReadFromWordsOfTheCommandLine) {
    EXPECT_EQ(inspect::scaleStepOf("quarters"), inspect::ScaleStep::Quarters);
    EXPECT_EQ(inspect::scaleStepOf("Days"), std::nullopt);
    EXPECT_EQ(inspect::dayOfText("2026-03-02"), kMonday);
    EXPECT_EQ(inspect::dayOfText("2163-06-05"), 65'535);
    for (const char* const wrong : {"", "2026-3-02", "2026-02-29", "2026-13-01", "1983-12-30", "2163-06-06",
                                    "+026-03-02", "2026-03-0a", "2026/03/02", "2026-03-021"})
        EXPECT_EQ(inspect::dayOfText(wrong), std::nullopt) << wrong;
}

TEST(TimeScale, GoesByTheOptionsAndLeavesOutTheProjectsOwnRow) {
    std::vector<inspect::Task> tasks(2);
    tasks[0].start = at(0, 8); // the project's own
    tasks[1].uniqueId = 1;
    tasks[1].start = at(kMonday, 8);
    tasks[1].finish = at(kMonday + 700, 17);
    EXPECT_GT(inspect::TimeScale(tasks, {}).days().first, kMonday - 30);
    const inspect::TimeScale days(tasks, {inspect::ScaleStep::Days, kMonday + 7, kMonday + 106, {}});
    EXPECT_EQ(days.days().first, kMonday + 7);
    EXPECT_EQ(days.axis(days.width()).lower.size(), 100U);
    EXPECT_EQ(days.axis(days.width()).lower[0].label, "9");
}

std::vector<std::pair<int, int>> freeSpans(const inspect::Calendar* calendar, int first, int last) {
    std::vector<std::pair<int, int>> spans;
    for (const DaySpan& span : freeDays(calendar, {first, last}))
        spans.emplace_back(span.first - kMonday, span.last - kMonday);
    return spans;
}

TEST(FreeDays, AreWeekendsWithoutACalendar) {
    EXPECT_THAT(freeSpans(nullptr, kMonday, kMonday + 13), ElementsAre(std::pair(5, 6), std::pair(12, 13)));
    EXPECT_THAT(freeSpans(nullptr, kMonday, kMonday - 1), IsEmpty());
    EXPECT_THAT(freeSpans(nullptr, -9, 2).size(), 2U); // before the first day of the format
}

TEST(FreeDays, FollowExceptionsThenWorkWeeksThenTheWeek) {
    inspect::Calendar calendar;
    calendar.hasOwnHours = true;
    const std::vector<inspect::TimeRange> work{{4'800, 9'600}};
    for (auto& day : calendar.week)
        day = work;
    calendar.week[0].emplace(); // Sunday
    inspect::WorkWeek shut{kMonday + 7, kMonday + 13, {}, ""};
    for (auto& day : shut.week)
        day.emplace();
    calendar.workWeeks.push_back(shut);
    calendar.exceptions.push_back({kMonday + 2, kMonday + 3, {}, ""});
    calendar.exceptions.push_back({kMonday + 3, kMonday + 3, work, ""}); // the first one told holds
    calendar.exceptions.push_back({kMonday + 9, kMonday + 9, work, ""});
    calendar.exceptions.push_back({kMonday + 20, kMonday + 19, {}, ""}); // ends before it begins
    EXPECT_THAT(freeSpans(&calendar, kMonday, kMonday + 19),
                ElementsAre(std::pair(2, 3), std::pair(6, 8), std::pair(10, 13)));
}

TEST(FreeDays, CostNoMoreWhereExceptionsOverlap) {
    inspect::Calendar calendar;
    calendar.exceptions.assign(200'000, {0, 65'535, {}, ""});
    EXPECT_EQ(freeDays(&calendar, {0, 65'535}).size(), 1U);
}

} // namespace
} // namespace brackwater::test
