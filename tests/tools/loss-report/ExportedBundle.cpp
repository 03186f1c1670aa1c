#include "ExportedBundle.h"

#include "MPPXMLDOMFilter/Export/MSPEMPPExporter.h"
#include "support/LogCapture.h"
#include "support/ScopedTimeZone.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace brackwater::test {

lossreport::LossReport lossesOf(const std::string& bundle, ExportMode mode) {
    const ScopedTimeZone zone("UTC");
    const TempFolder scratch;
    const std::string output = scratch.path("Out.mpp");
    LogCapture log;
    MSPEMPPExporter exporter(MSPEExportInfo{{std::string(kInfoMSPDIProjectName), "Plan"}}, mode);
    const std::string base = BRACKWATER_BINARY_DIR "/share/Template.mpp";
    EXPECT_TRUE(exporter.exportZelbBundle(FileURL::fileURLWithPath(bundle, true),
                                          FileURL::fileURLWithPath(output, false),
                                          FileURL::fileURLWithPath(base, true)))
        << log.joined();
    return lossreport::findLosses(bundle, output);
}

std::string lineOf(const lossreport::Loss& loss) {
    return loss.kind + ": " + loss.id + " " + loss.field + ": '" + loss.source + "', '" + loss.file + "'";
}

std::vector<std::string> goldenBundles() {
    std::vector<std::string> paths;
    for (const auto& entry : std::filesystem::directory_iterator(BRACKWATER_SOURCE_DIR "/tests/golden/bundles"))
        paths.push_back(entry.path());
    return paths;
}

} // namespace brackwater::test
