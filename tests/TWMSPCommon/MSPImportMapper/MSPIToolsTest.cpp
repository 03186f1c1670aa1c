#include "Platform/Files/FileURL.h"
#include "Platform/Xml/XMLDocument.h"
#include "TWMSPCommon/MSPImportMapper/MSPIUtilities.h"
#include "TWMSPCommon/WorkingTime/MSPEScheduleCalendar.h"
#include "support/ExpectException.h"
#include "support/LogCapture.h"
#include "support/ScopedTimeZone.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace brackwater {
namespace {

namespace fs = std::filesystem;

TEST(WorkingTimeOfTexts, IgnoresAnotherCalendarWithAWarning) {
    const test::ScopedTimeZone zone("UTC");
    const test::LogCapture log;
    const MSPEScheduleCalendar noWork;
    EXPECT_TRUE(MSPIUtilities::isWorkingDay("2012-06-04", &noWork));
    EXPECT_EQ(MSPIUtilities::isoDateTimeAdvanceByDuration("2012-06-04T09:00:00", 3600.0, true, &noWork),
              "2012-06-04T10:00:00Z");
    EXPECT_EQ(log.lines(),
              (std::vector<std::string>{
                  "WARINING: Custom Calendars not supported to determine working days yet. Standard propject Calendar "
                  "will be used instead.",
                  "WARINING: Custom Calendars not supported to advance date by duration yet. Standard propject "
                  "Calendar will be used instead."}));
}

MPPDataStreamParams someParams() {
    MPPDataStreamParams params;
    params.hasPropsStream = true;
    params.hasFixedStream = true;
    params.fixed = {-86004294, 47, 260, 264};
    params.firstFixedIndex = 3;
    params.hasVarStream = true;
    params.var = {0x1234, 5};
    return params;
}

TEST(DataStreamParams, CompareThePresentStreams) {
    const MPPDataStreamParams params = someParams();
    const auto equalAfter = [&params](auto change) {
        MPPDataStreamParams other = params;
        change(other);
        return MSPIUtilities::dataStreamParamsEqual(params, other);
    };
    EXPECT_TRUE(equalAfter([](auto& p) { p.fixed2.metaStreamItemSize = 9; })) << "there is no second pair";
    EXPECT_TRUE(equalAfter([](auto& p) { p.var.unused = 9; }));
    EXPECT_FALSE(equalAfter([](auto& p) { p.hasPropsStream = false; }));
    EXPECT_FALSE(equalAfter([](auto& p) { p.fixed.dataStreamMaxItemSize = 9; }));
    EXPECT_FALSE(equalAfter([](auto& p) { p.hasFixed2Stream = true; }));
    EXPECT_FALSE(equalAfter([](auto& p) { p.firstFixedIndex = 9; }));
    EXPECT_FALSE(equalAfter([](auto& p) { p.var.metaStreamMagicNumber = 9; }));
}

class DebugDump : public testing::Test {
protected:
    FileURL url() const { return FileURL::fileURLWithPath(_folder.path(), true); }
    fs::path dumpFolder() const { return _folder.path("TWMSPDIFilterDump"); }
    std::string dumped(std::string_view name) const { return _folder.read("TWMSPDIFilterDump/" + std::string(name)); }

    const test::TempFolder _folder;
    std::unique_ptr<XMLDocument> _document = XMLDocument::withRootElement("Project");
};

TEST_F(DebugDump, WritesTheDocumentBelowTheFolder) {
    MSPIUtilities::dumpXMLDocument(*_document, url(), std::nullopt);
    MSPIUtilities::dumpXMLDocument(*_document, url(), "Plan", 2);
    EXPECT_EQ(dumped("TWMSPDIFilter_dump.xml"), _document->serialized());
    _document->rootElement().addChild("Title");
    MSPIUtilities::dumpXMLDocument(*_document, url(), "Plan", 2);
    EXPECT_EQ(dumped("Plan_dump(2).xml"), _document->serialized()) << "overwritten";
    EXPECT_EQ(std::distance(fs::directory_iterator(dumpFolder()), fs::directory_iterator()), 2);
}

TEST_F(DebugDump, DoesNothingWithoutItsFolder) {
    fs::remove_all(_folder.path());
    MSPIUtilities::dumpXMLDocument(*_document, url(), std::nullopt);
    EXPECT_FALSE(fs::exists(_folder.path()));
}

TEST_F(DebugDump, RejectsEverythingButFolders) {
    test::expectAssertion(
        "*** ERROR: MSPIUtilities dumpXMLDocument:workingFolderUrl: Not a file URL: 'http://example.com/'", [this] {
            MSPIUtilities::dumpXMLDocument(*_document, FileURL::urlWithString("http://example.com/"), std::nullopt);
        });
    std::ofstream(dumpFolder()) << "a file in the folder's place";
    test::expectAssertion("*** ERROR: MSPIUtilities dumpXMLDocument:workingFolderUrl: Failed to locate dump folder: '" +
                              dumpFolder().string() + "'.",
                          [this] { MSPIUtilities::dumpXMLDocument(*_document, url(), std::nullopt); });
}

} // namespace
} // namespace brackwater
