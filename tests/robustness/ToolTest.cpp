#include "ToolTest.h"

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
