// Exports a bundle; the report must list exactly the values that were lost.

#include "ExportedBundle.h"
#include "loss-report/LossKinds.h"

#include "support/TempFolder.h"
#include "support/ToolRun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace brackwater::test {
namespace {

using namespace lossreport;

const std::string kSources = BRACKWATER_SOURCE_DIR;
LossReport lossesInExact(const std::string& bundle) { return lossesOf(bundle, ExportMode::Exact); }

std::vector<std::string> linesOf(const LossReport& report, const std::string& kind) {
    std::vector<std::string> lines;
    for (const Loss& loss : report.losses)
        if (loss.kind == kind)
            lines.push_back(lineOf(loss));
    return lines;
}

TEST(LossReport, EachLossInTheGoldenBundlesHasAKnownReason) {
    for (const std::string& bundle : goldenBundles())
        EXPECT_THAT(linesOf(lossesInExact(bundle), "unexplained"), testing::IsEmpty()) << bundle;
}

TEST(LossReport, ShowsTheValuesOfTheDocumentAndTheFile) {
    const LossReport report = lossesInExact(kSources + "/tests/golden/bundles/notes-and-fields.zelb");
    EXPECT_THAT(linesOf(report, "note-emptied"), testing::ElementsAre("note-emptied: t2 note: 'Grüße', ''"));
    EXPECT_THAT(linesOf(report, "note-paragraphs"),
                testing::ElementsAre("note-paragraphs: t1 note: 'First line\nSecond line', 'First lineSecond line'"));
    EXPECT_THAT(linesOf(report, "top-task"), testing::ElementsAre("top-task: t-1 title: 'Plan', 'Notes & fields'"));
}

TEST(LossReport, TextHasAtMostTheRequestedLinesAndIsSafeForATerminal) {
    LossReport report;
    for (int i = 0; i < 30; ++i)
        report.losses.push_back({"line-ends", "task", "t1", "\x1B[2J\u202Eb", "title", "a\nb\u009B", "", "why"});
    report.losses.push_back({"hammock", "task", "t2", "H", "type", "hammock", "task", "why"});
    EXPECT_EQ(textOfLosses(report, 4), "line-ends: the field has one line: line ends become blanks, 30 values\n"
                                       "  task t1 '\\u001b[2J\\u202eb', title: 'a\\u000ab\\u009b' is missing\n"
                                       "hammock: the format has no hammocks: they become plain tasks, 1 value\n"
                                       "  task t2 'H', type: 'hammock' is 'task'\n");
    EXPECT_EQ(textOfLosses(report, 1), "and 31 values more\n");
    EXPECT_EQ(textOfLosses({}, 20), "");
}

TEST(LossReport, MatchesItsSchemaAndItsDocumentationInJson) {
    const TempFolder scratch;
    std::ofstream file(scratch.path("losses.json"));
    inspect::JsonWriter json([&file](std::string_view text) { file << text; });
    writeLosses(json, lossesInExact(kSources + "/examples/House.zelb"));
    json.finish();
    file.close();
    const ToolStart check{.program = "/usr/bin/python3",
                          .arguments = {kSources + "/tests/tools/loss-report/check-json.py",
                                        scratch.path("losses.json"), kSources + "/docs"},
                          .environment = {},
                          .logPath = scratch.path("check.log")};
    EXPECT_EQ(waitForTool(startTool(check)).exitStatus, 0) << std::ifstream(check.logPath).rdbuf();
}

// Rows of the tables, cell by cell, without the heads and the lines below them.
std::vector<std::vector<std::string>> tableRows(const std::string& path) {
    std::vector<std::vector<std::string>> rows;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        if (!line.starts_with("| ") || line.starts_with("| ---") || line.ends_with("| kind |"))
            continue;
        std::vector<std::string> cells;
        std::stringstream rest(line.substr(2));
        for (std::string cell; std::getline(rest, cell, '|');)
            cells.push_back(cell.substr(
                cell.find_first_not_of(' ') == std::string::npos ? cell.size() : cell.find_first_not_of(' ')));
        rows.push_back(cells);
    }
    return rows;
}

std::set<std::string> kindsOf(const std::string& cell) {
    std::set<std::string> kinds;
    for (std::size_t at = cell.find('`'); at != std::string::npos; at = cell.find('`', cell.find('`', at + 1) + 1))
        kinds.insert(cell.substr(at + 1, cell.find('`', at + 1) - at - 1));
    return kinds;
}

TEST(LossReport, HasAKindForEachDocumentedLoss) {
    std::set<std::string> known, told;
    for (const LossKind& kind : lossKinds())
        known.insert(std::string(kind.id));
    for (const auto& cells : tableRows(kSources + "/docs/fidelity.md")) {
        ASSERT_EQ(cells.size(), 5U) << cells.front();
        const std::set<std::string> kinds = kindsOf(cells[4]);
        EXPECT_EQ(cells[2].empty(), kinds.empty()) << cells[0] << ": a loss without a kind, or a kind without a loss";
        EXPECT_EQ(cells[2].empty(), cells[3].empty()) << cells[0] << ": what is left of it with brackwater?";
        told.insert(kinds.begin(), kinds.end());
    }
    EXPECT_EQ(told, known);
}

TEST(LossReport, KindsAreInTheOrderOfTheirEnumerationWithUniqueIds) {
    std::set<std::string_view> ids;
    for (std::size_t i = 0; i < lossKinds().size(); ++i) {
        EXPECT_EQ(static_cast<std::size_t>(lossKinds()[i].kind), i);
        EXPECT_TRUE(ids.insert(lossKinds()[i].id).second) << lossKinds()[i].id;
    }
}

} // namespace
} // namespace brackwater::test
