// A bundle is exported, and the report must tell just what did not arrive.
#include "loss-report/LossReport.h"

#include "loss-report/LossKinds.h"

#include "MPPXMLDOMFilter/Export/MSPEMPPExporter.h"
#include "support/LogCapture.h"
#include "support/ScopedTimeZone.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace brackwater::test {
namespace {

using namespace lossreport;

const std::string kSources = BRACKWATER_SOURCE_DIR;
const std::string kTemplate = std::string(BRACKWATER_BINARY_DIR) + "/share/Template.mpp";

LossReport lossesOf(const std::string& bundle) {
    const ScopedTimeZone zone("UTC");
    const TempFolder scratch;
    const std::string output = scratch.path("Out.mpp");
    LogCapture log;
    MSPEMPPExporter exporter(MSPEExportInfo{{std::string(kInfoMSPDIProjectName), "Plan"}});
    EXPECT_TRUE(exporter.exportZelbBundle(FileURL::fileURLWithPath(bundle, true),
                                          FileURL::fileURLWithPath(output, false),
                                          FileURL::fileURLWithPath(kTemplate, true)))
        << log.joined();
    return findLosses(bundle, output);
}

std::string lineOf(const Loss& loss) {
    return loss.kind + ": " + loss.id + " " + loss.field + ": '" + loss.source + "', '" + loss.file + "'";
}

std::vector<std::string> linesOf(const LossReport& report, const std::string& kind) {
    std::vector<std::string> lines;
    for (const Loss& loss : report.losses)
        if (loss.kind == kind)
            lines.push_back(lineOf(loss));
    return lines;
}

TEST(LossReport, EachLossOfTheGoldenBundlesHasAKnownReason) {
    for (const auto& entry : std::filesystem::directory_iterator(kSources + "/tests/golden/bundles")) {
        SCOPED_TRACE(entry.path());
        EXPECT_THAT(linesOf(lossesOf(entry.path()), "unexplained"), testing::IsEmpty());
    }
}

TEST(LossReport, TellsWhatTheDocumentAndTheFileSay) {
    const LossReport report = lossesOf(kSources + "/tests/golden/bundles/notes-and-fields.zelb");
    EXPECT_THAT(linesOf(report, "note-emptied"), testing::ElementsAre("note-emptied: t2 note: 'Grüße', ''"));
    EXPECT_THAT(linesOf(report, "note-paragraphs"),
                testing::ElementsAre("note-paragraphs: t1 note: 'First line\nSecond line', 'First lineSecond line'"));
    EXPECT_THAT(linesOf(report, "top-task"), testing::ElementsAre("top-task: t-1 title: 'Plan', 'Notes & fields'"));
}

TEST(LossReport, TextHasTheLinesAskedForAndNoCharacterThatHarmsATerminal) {
    LossReport report;
    for (int i = 0; i < 30; ++i)
        report.losses.push_back({"line-ends", "task", "t1", "\x1B[2J\u202Eb", "title", "a\nb\u009B", "", "why"});
    report.losses.push_back({"hammock", "task", "t2", "H", "type", "hammock", "task", "why"});
    EXPECT_EQ(textOfLosses(report, 4),
              "line-ends: the field has one line: line ends become blanks, 30 values\n"
              "  task t1 '\\u001b[2J\\u202eb', title: 'a\\u000ab\\u009b' is missing\n"
              "hammock: the format has no hammocks: a plain task stands in its place, 1 value\n"
              "  task t2 'H', type: 'hammock' is 'task'\n");
    EXPECT_EQ(textOfLosses(report, 1), "and 31 values more\n");
    EXPECT_EQ(textOfLosses({}, 20), "");
}

TEST(LossReport, KindsStandInTheOrderOfTheirEnumerationUnderIdsOfTheirOwn) {
    std::set<std::string_view> ids;
    for (std::size_t i = 0; i < lossKinds().size(); ++i) {
        EXPECT_EQ(static_cast<std::size_t>(lossKinds()[i].kind), i);
        EXPECT_TRUE(ids.insert(lossKinds()[i].id).second) << lossKinds()[i].id;
    }
}

} // namespace
} // namespace brackwater::test
