// The whole road: a bundle in, the decoded file and the log out, compared with readable texts under expected/. Each
// bundle shows one subject. After a wanted change BRACKWATER_UPDATE_GOLDEN=1 writes the texts anew.
#include "MPPXMLDOMFilter/Export/MSPEMPPExporter.h"
#include "TWMSPCommon/MSPCDateTimeConverter.h"
#include "mppinspect/CompoundFile.h"
#include "mppinspect/ProjectFile.h"
#include "mppinspect/TextReport.h"
#include "support/LogCapture.h"
#include "support/ScopedTimeZone.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

namespace brackwater::test {
namespace {

namespace fs = std::filesystem;

const std::string kFolder = std::string(BRACKWATER_SOURCE_DIR) + "/tests/golden";

std::string templateOfLayout(const std::string& layout) {
    return std::string(BRACKWATER_BINARY_DIR) + "/share/Template" + (layout == "114" ? "114" : "") + ".mpp";
}

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

// GUIDs are random, and paths are the test run's own.
std::string masked(std::string text, const std::string& scratch) {
    static const std::regex kGuid("[0-9a-fA-F]{8}-[0-9a-fA-F]{4}-[0-9a-fA-F]{4}-[0-9a-fA-F]{4}-[0-9a-fA-F]{12}");
    text = std::regex_replace(text, kGuid, "<guid>");
    for (const auto& [path, mask] : {std::pair{scratch, "<out>"}, std::pair{kFolder, "<golden>"},
                                     std::pair{std::string(BRACKWATER_BINARY_DIR), "<build>"}})
        for (std::size_t at = text.find(path); at != std::string::npos; at = text.find(path, at))
            text.replace(at, path.size(), mask);
    return text;
}

// Properties of the template that an export leaves alone, and maps of its rows, say nothing of the bundle.
std::string withoutForeignProperties(const std::string& report) {
    static const std::regex kForeign("0x[0-9a-fA-F]{8} +([0-9]+ bytes .*|field map of .*)");
    std::istringstream lines(report);
    std::string kept;
    for (std::string line; std::getline(lines, line);)
        if (!std::regex_match(line, kForeign))
            kept += line + "\n";
    return kept;
}

// Links are numbered through all exports of a process.
void numberLinksFromOne(inspect::ProjectFile& project) {
    const std::uint32_t first = project.links.empty() ? 1 : project.links.front().id;
    for (auto& link : project.links)
        link.id -= first - 1;
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

    using inspect::Section;
    inspect::ProjectFile project = inspect::decode(inspect::CompoundFile::open(output));
    numberLinksFromOne(project);
    std::string text;
    for (const Section section : {Section::Summary, Section::Properties, Section::Tasks, Section::Resources,
                                  Section::Assignments, Section::Links, Section::Calendars, Section::Complaints})
        text += (text.empty() ? "" : "\n") + inspect::report(project, section);
    return {masked(withoutForeignProperties(text), scratch.path()), masked(log.joined(), scratch.path())};
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
    // The line about the system zone comes once a process: here it comes before any log that is compared.
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
