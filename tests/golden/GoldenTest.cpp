// The whole path: a bundle in, the decoded file and the log out, compared with readable texts under expected/. Each
// bundle covers one subject. After an intended change BRACKWATER_UPDATE_GOLDEN=1 rewrites the texts.
#include "DecodedFile.h"

#include "MPPXMLDOMFilter/Export/MSPEMPPExporter.h"
#include "TWMSPCommon/MSPCDateTimeConverter.h"
#include "support/LogCapture.h"
#include "support/ScopedTimeZone.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace brackwater::test {
namespace {

namespace fs = std::filesystem;

const std::string kFolder = std::string(BRACKWATER_SOURCE_DIR) + "/tests/golden";

std::vector<std::string> bundleNames() {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(kFolder + "/bundles"))
        names.push_back(entry.path().stem().string());
    std::sort(names.begin(), names.end());
    return names;
}

struct Exported {
    std::string report;
    std::string log;
};

// Paths differ between test runs.
std::string masked(std::string text, const std::string& scratch) {
    for (const auto& [path, mask] : {std::pair{scratch, "<out>"}, std::pair{kFolder, "<golden>"},
                                     std::pair{std::string(BRACKWATER_BINARY_DIR), "<build>"}})
        for (std::size_t at = text.find(path); at != std::string::npos; at = text.find(path, at))
            text.replace(at, path.size(), mask);
    return text;
}

Exported exportOf(const std::string& bundle, const std::string& layout) {
    const ScopedTimeZone zone(bundle == "two-zones" ? "Europe/Berlin" : "UTC");
    const TempFolder scratch;
    const std::string output = scratch.path("Out.mpp");
    LogCapture log;
    MSPEMPPExporter exporter(MSPEExportInfo{{std::string(kInfoMSPDIProjectName), bundle}});
    const bool succeeded = exporter.exportZelbBundle(
        FileURL::fileURLWithPath(kFolder + "/bundles/" + bundle + ".zelb", true),
        FileURL::fileURLWithPath(output, false), FileURL::fileURLWithPath(templateOfLayout(layout), true));
    EXPECT_TRUE(succeeded) << log.joined();
    if (!succeeded)
        return {};

    return {masked(textOf(decodedFile(output)), scratch.path()), masked(log.joined(), scratch.path())};
}

void compareWithGolden(const std::string& name, const std::string& text) {
    const std::string path = kFolder + "/expected/" + name;
    if (std::getenv("BRACKWATER_UPDATE_GOLDEN")) {
        fs::create_directories(kFolder + "/expected");
        std::ofstream(path, std::ios::binary) << text;
        return;
    }
    std::ifstream file(path, std::ios::binary);
    ASSERT_TRUE(file) << "no golden file " << path;
    std::stringstream expected;
    expected << file.rdbuf();
    EXPECT_EQ(text, expected.str()) << "differs from " << path;
}

class Golden : public testing::TestWithParam<std::string> {
protected:
    // The line about the system zone is logged once per process: here it comes before any compared log.
    static void SetUpTestSuite() {
        const LogCapture log;
        MSPCDateTimeConverter::initialize();
    }
};

TEST_P(Golden, FileInThe2007LayoutIsAsExpected) {
    const Exported exported = exportOf(GetParam(), "112");
    compareWithGolden(GetParam() + "-2007.txt", exported.report);
}

TEST_P(Golden, FileInThe2010LayoutIsAsExpected) {
    compareWithGolden(GetParam() + "-2010.txt", exportOf(GetParam(), "114").report);
}

std::string testName(const testing::TestParamInfo<std::string>& info) {
    std::string name = info.param;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Bundles, Golden, testing::ValuesIn(bundleNames()), testName);

TEST_P(Golden, LogIsAsExpected) { compareWithGolden(GetParam() + ".log", exportOf(GetParam(), "112").log); }

} // namespace
} // namespace brackwater::test
