// Corrected exports are as consistent as all files saved by Microsoft Project 2007.
#include "DecodedFile.h"

#include "MPPXMLDOMFilter/Export/MSPEMPPExporter.h"
#include "mppinspect/ConsistencyCheck.h"
#include "support/LogCapture.h"
#include "support/ScopedTimeZone.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace brackwater::test {
namespace {

using testing::IsEmpty;

std::vector<std::string> bundles() {
    const std::string sources = BRACKWATER_SOURCE_DIR;
    std::vector<std::string> paths = {sources + "/examples/House.zelb"};
    for (const auto& entry : std::filesystem::directory_iterator(sources + "/tests/golden/bundles"))
        paths.push_back(entry.path().string());
    return paths;
}

std::vector<std::string> inconsistencies(const std::string& bundle, ExportMode mode) {
    const ScopedTimeZone zone("UTC");
    const TempFolder scratch;
    const std::string output = scratch.path("Out.mpp");
    const LogCapture log;
    const bool written = MSPEMPPExporter({}, mode).exportZelbBundle(
        FileURL::fileURLWithPath(bundle, true), FileURL::fileURLWithPath(output, false),
        FileURL::fileURLWithPath(templateOfLayout("112"), false));
    EXPECT_TRUE(written) << bundle << log.joined();
    if (!written)
        return {};
    const inspect::CompoundFile file = inspect::CompoundFile::open(output);
    inspect::Findings findings;
    checkConsistency(file, inspect::decode(file), findings);
    return findings.warnings.lines();
}

TEST(Consistency, HoldsInCorrectedExportsOfAllBundles) {
    for (const std::string& bundle : bundles())
        EXPECT_THAT(inconsistencies(bundle, ExportMode::Corrected), IsEmpty()) << bundle;
}

// Proves that the check detects inconsistencies.
TEST(Consistency, IsViolatedByTheExactExport) {
    const auto found = inconsistencies(bundles().front(), ExportMode::Exact);
    for (const char* fault : {"another number of rows", "another size of Var2Data", "another number of elements",
                              "names another calendar", "same number", "another number of days", "no known kind"})
        EXPECT_THAT(found, testing::Contains(testing::HasSubstr(fault)));
}

} // namespace
} // namespace brackwater::test
