// In a corrected export the file has each value of the document, except those that the format cannot store.
#include "EverythingBundle.h"
#include "ExportedBundle.h"
#include "loss-report/LossKinds.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>

namespace brackwater::test {
namespace {

using namespace lossreport;

std::vector<std::string> lossesBeyondTheFormat(const std::string& bundle) {
    std::vector<std::string> lines;
    for (const Loss& loss : lossesOf(bundle, ExportMode::Corrected).losses)
        for (const LossKind& kind : lossKinds())
            if (kind.id == loss.kind && kind.occurs != Occurs::Always)
                lines.push_back(lineOf(loss));
    return lines;
}

TEST(CorrectedExport, LosesNothingThatTheFormatCanStoreInTheKnownBundles) {
    std::vector<std::string> bundles = goldenBundles();
    bundles.push_back(BRACKWATER_SOURCE_DIR "/examples/House.zelb");
    for (const std::string& bundle : bundles)
        EXPECT_THAT(lossesBeyondTheFormat(bundle), testing::IsEmpty()) << bundle;
}

// The names in the first cells of the documentation's rows.
std::set<std::string> documentedNames() {
    std::ifstream file(BRACKWATER_SOURCE_DIR "/docs/fidelity.md");
    const std::regex quoted("`([a-z/-]+)`");
    std::set<std::string> names;
    for (std::string line; std::getline(file, line);) {
        if (!line.starts_with("| `"))
            continue;
        const std::string cell = line.substr(0, line.find(" | "));
        for (std::sregex_iterator name(cell.begin(), cell.end(), quoted), end; name != end; ++name)
            names.insert((*name)[1].str().substr((*name)[1].str().rfind('/') + 1));
    }
    return names;
}

TEST(CorrectedExport, IsTestedWithEveryDocumentedElement) {
    const TempFolder folder;
    std::stringstream bundle;
    for (const char* document : {"/__TOC.xml", "/plan.xml"})
        bundle << std::ifstream(writeEverything(folder) + document).rdbuf();
    ASSERT_GT(documentedNames().size(), 50U);
    for (const std::string& name : documentedNames())
        EXPECT_TRUE(std::regex_search(bundle.str(), std::regex("[< ]" + name + "[ =>/]"))) << name;
}

TEST(CorrectedExport, LosesNothingThatTheFormatCanStoreInAnyElement) {
    const TempFolder folder;
    EXPECT_THAT(lossesBeyondTheFormat(writeEverything(folder)), testing::IsEmpty());
}

TEST(CorrectedExport, ReportsEachElementThatTheFormatCannotStore) {
    const TempFolder folder;
    std::map<std::string, int> counts;
    for (const Loss& loss : lossesOf(writeEverything(folder), ExportMode::Corrected).losses)
        ++counts[loss.kind];
    for (const auto& [kind, count] :
         std::map<std::string, int>{{"date-range", 2},        {"seconds", 1},          {"line-ends", 1},
                                    {"scenario-left-out", 1}, {"scenario-name", 2},    {"unreached", 2},
                                    {"hammock", 1},           {"priority-scale", 1},   {"leveled-start", 1},
                                    {"schedule-type", 1},     {"recalculate", 1},      {"constraint", 1},
                                    {"segment", 2},           {"link-to-top-task", 1}, {"link-left-out", 1},
                                    {"link-lag", 1},          {"link-origin", 2},      {"both-kinds-of-work", 1},
                                    {"equipment", 1},         {"resource-type", 1},    {"group-name", 1},
                                    {"group-data", 7},        {"efficiency", 1},       {"baseline-only", 1}})
        EXPECT_EQ(counts[kind], count) << kind;
}

} // namespace
} // namespace brackwater::test
