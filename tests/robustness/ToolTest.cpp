#include "ToolTest.h"

#include "support/ScenarioBuilder.h"

#include <cstdlib>
#include <filesystem>

namespace brackwater::test {

pid_t ToolTest::startExport(const std::string& output, const std::string& fault) {
    ToolStart start{BRACKWATER_TOOL, {"--template-path", _template, _bundle, output}, {}, _folder.path("log")};
    start.closed = _closed;
    start.mostBytesOfAFile = _mostBytesOfAFile;
    start.mostMemory = _mostMemory;
    start.environment["XDG_CONFIG_HOME"] = _folder.path("config");
    start.environment["TZ"] = "UTC";
    if (!fault.empty()) {
        std::filesystem::remove(_folder.path("fault-mark"));
        start.environment["LD_PRELOAD"] = BRACKWATER_FAULT_LIBRARY;
        start.environment["BRACKWATER_FAULT"] = fault;
        start.environment["BRACKWATER_FAULT_MARK"] = _folder.path("fault-mark");
        // The sanitizers' library need not be the first one.
        const char* options = std::getenv("ASAN_OPTIONS");
        start.environment["ASAN_OPTIONS"] = (options ? options + std::string(":") : "") + "verify_asan_link_order=0";
    }
    return startTool(start);
}

ToolEnd ToolTest::exportTo(const std::string& output, const std::string& fault) {
    return waitForTool(startExport(output, fault));
}

void ToolTest::setOverwriting() const {
    _folder.write("config/lanthorn.Tarnwick2.MSPExportMPP.conf", "[Preferences]\nOverwriteFilterTarget=YES\n");
}

void ToolTest::writeTalkativePlan() const {
    constexpr int kTasks = 500;
    std::string ids = "t1";
    for (int number = 2; number <= kTasks; ++number)
        ids += ",t" + std::to_string(number);
    auto scenario = ScenarioBuilder::withRoots("", ids);
    for (int number = 1; number <= kTasks; ++number)
        scenario.task("t" + std::to_string(number));
    _folder.write("Plan.zelb/plan.xml", scenario.text());
}

void ToolTest::expectFailedExport() const {
    EXPECT_TRUE(logHas("WARNING: Writing stopped at '")) << log();
    EXPECT_TRUE(logHas("MSPEMPPExporter: Finished with success=NO")) << log();
    EXPECT_TRUE(logHas("### Exporter FAILED.")) << log();
    EXPECT_TRUE(logHas("Final clean up.")) << log();
}

std::set<std::string> ToolTest::namesIn(const std::string& folder) {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        names.insert(entry.path().filename());
    return names;
}

} // namespace brackwater::test
