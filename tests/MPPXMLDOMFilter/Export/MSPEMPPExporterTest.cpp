#include "MPPXMLDOMFilter/Export/MSPEMPPExporter.h"

#include "support/CompoundFile.h"
#include "support/LogCapture.h"
#include "support/PlanBundle.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>

namespace brackwater {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

FileURL fileUrl(const std::string& path) { return FileURL::fileURLWithPath(path, false); }

class Exporter : public testing::Test {
protected:
    void SetUp() override {
        test::writeCompoundFile(_template, {test::compObj2007(), test::stream("Other", test::patternBytes(5000))});
    }

    bool exportBundle(const std::string& bundle, const std::string& output) {
        _log.emplace();
        return MSPEMPPExporter({}).exportZelbBundle(fileUrl(bundle), fileUrl(output), fileUrl(_template));
    }

    /// The last line but one and the last.
    std::pair<std::string, std::string> lastLines() const {
        const auto& lines = _log->lines();
        return lines.size() < 2 ? std::pair<std::string, std::string>() : std::pair(*(lines.end() - 2), lines.back());
    }

    test::TempFolder _folder;
    const std::string _template = _folder.path("Template.mpp");
    std::optional<test::LogCapture> _log;
};

struct UrlFault {
    std::optional<FileURL> source, destination, templateUrl;
    std::string reason;
};

TEST_F(Exporter, RefusesEachUrlThatIsMissingNoFileOrOfAnotherKind) {
    const FileURL bundle = fileUrl("/x/Plan.ZELB");
    const FileURL output = fileUrl("/x/Plan.MPP");
    const FileURL web = FileURL::urlWithString("https://example.com/Plan.mpp");
    const UrlFault faults[] = {
        {std::nullopt, std::nullopt, std::nullopt, "Source URL not specified."},
        {web, output, output, "Source must be a file system."},
        {output, output, output, "Source must be a Tarnwick 2 document bundle (.zelb directory)."},
        {bundle, std::nullopt, output, "Destination URL not specified."},
        {bundle, web, output, "Destination must be a file system."},
        {bundle, fileUrl("/x/Plan"), output, "Destination must be a MS Project MPP document."},
        {bundle, output, std::nullopt, "Template URL not specified."},
        {bundle, output, web, "Template must be a file system."},
        {bundle, output, fileUrl("/x.mpp/Template.mpt"), "Template must be a MS Project MPP document."},
    };
    for (const UrlFault& fault : faults) {
        SCOPED_TRACE(fault.reason);
        _log.emplace();
        EXPECT_FALSE(MSPEMPPExporter({}).exportZelbBundle(fault.source, fault.destination, fault.templateUrl));
        EXPECT_THAT(_log->lines(), ElementsAre("EXCEPTION: TWMPPExporterException\nMSPEMPPExporter "
                                               "exportZelbBundle:toMppURL:withMppTemplate: " +
                                               fault.reason + "\n"));
    }
}

TEST_F(Exporter, FailureOfLoadingEndsInTheHandler) {
    _folder.makeFolder("Empty.zelb");
    EXPECT_FALSE(exportBundle(_folder.path("Empty.zelb"), _folder.path("Out.mpp")));
    EXPECT_THAT(_log->lines().back(),
                AllOf(StartsWith("EXCEPTION: MSPEXMLException\nMSPEXMLExporter.newXmlDocFromUrl: Failed to build XML "
                                 "DOM from source data.\n"),
                      HasSubstr(_folder.path("Empty.zelb/__TOC.xml"))));
    EXPECT_FALSE(_folder.has("Out.mpp"));
}

TEST_F(Exporter, SaysWhyNoScenarioWasMapped) {
    test::TableOfContents contents;
    contents.windows = {{"s7"}};
    EXPECT_FALSE(exportBundle(test::writeBundle(_folder, "Other.zelb", contents), _folder.path("Plan.mpp")));
    EXPECT_TRUE(_log->contains("mspdiXmlDoc: (null)"));
    EXPECT_THAT(lastLines(), testing::Pair(AllOf(StartsWith("WARNING: No scenario was mapped. "), HasSubstr("\"s7\"")),
                                           "MSPEMPPExporter: Finished with success=NO"));
    EXPECT_FALSE(_folder.has("Plan.mpp"));
}

} // namespace
} // namespace brackwater
