// The example with every template in templates.txt and in the file named by BRACKWATER_TEMPLATES, which is for
// templates saved by users.
#include "DecodedFile.h"

#include "MPPXMLDOMFilter/Export/MSPEMPPExporter.h"
#include "mppinspect/TextReport.h"
#include "support/LogCapture.h"
#include "support/ScopedTimeZone.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

namespace brackwater::test {
namespace {

const std::string kListFile = std::string(BRACKWATER_SOURCE_DIR) + "/tests/golden/templates.txt";
const std::string kExample = std::string(BRACKWATER_SOURCE_DIR) + "/examples/House.zelb";

// One path per line; skips blank lines and lines that begin with "#".
void addTemplatesOfList(const std::string& listPath, std::vector<std::string>& paths) {
    constexpr std::string_view kBuildFolder = "<build>";
    std::ifstream list(listPath);
    if (!list) {
        paths.push_back(listPath); // shows as a missing template
        return;
    }
    for (std::string line; std::getline(list, line);) {
        if (line.empty() || line.starts_with('#'))
            continue;
        if (line.starts_with(kBuildFolder))
            line.replace(0, kBuildFolder.size(), BRACKWATER_BINARY_DIR);
        paths.push_back(line);
    }
}

std::vector<std::string> templates() {
    std::vector<std::string> paths;
    addTemplatesOfList(kListFile, paths);
    if (const char* further = std::getenv("BRACKWATER_TEMPLATES"))
        addTemplatesOfList(further, paths);
    return paths;
}

inspect::ProjectFile exampleUnder(const std::string& templatePath) {
    const ScopedTimeZone zone("UTC");
    const TempFolder scratch;
    const std::string output = scratch.path("House.mpp");
    const LogCapture log;
    const bool succeeded = MSPEMPPExporter({}).exportZelbBundle(FileURL::fileURLWithPath(kExample, true),
                                                                FileURL::fileURLWithPath(output, false),
                                                                FileURL::fileURLWithPath(templatePath, false));
    EXPECT_TRUE(succeeded) << (log.lines().empty() ? "" : log.lines().back());
    return succeeded ? decodedFile(output) : inspect::ProjectFile{};
}

// The contents of a bundle's file, independent of the template: the layouts differ in lags and in the hours of
// calendars.
std::string commonText(const inspect::ProjectFile& project) {
    using inspect::Section;
    return report(project, Section::Tasks) + report(project, Section::Resources) +
           report(project, Section::Assignments) + report(project, Section::Complaints);
}

class Templates : public testing::TestWithParam<std::string> {};

TEST_P(Templates, ExampleHasTheSameContentsWithEachOfThem) {
    const inspect::ProjectFile project = exampleUnder(GetParam());
    const inspect::ProjectFile expected = exampleUnder(templateOfLayout("112"));
    EXPECT_EQ(commonText(project), commonText(expected));
    EXPECT_EQ(project.links.size(), expected.links.size());
    EXPECT_EQ(project.calendars.size(), expected.calendars.size());
}

INSTANTIATE_TEST_SUITE_P(List, Templates, testing::ValuesIn(templates()));

} // namespace
} // namespace brackwater::test
