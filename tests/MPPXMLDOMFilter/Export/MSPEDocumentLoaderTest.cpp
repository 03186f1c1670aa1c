#include "MPPXMLDOMFilter/Export/MSPEDocumentLoader.h"

#include "Platform/Values/Exception.h"
#include "TWMSPCommon/MSPCExtensions.h"
#include "support/ExpectException.h"
#include "support/LogCapture.h"
#include "support/PlanBundle.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace brackwater {
namespace {

using test::TableOfContents;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::string_view kLoadFailure = "MSPEXMLExporter.newXmlDocFromUrl: Failed to build XML DOM from source data.";

class DocumentLoader : public testing::Test {
protected:
    MSPESourceDocuments load(const TableOfContents& contents, int threads = 1) const {
        return loadSourceDocuments(FileURL::fileURLWithPath(test::writeBundle(_folder, "Plan.zelb", contents), true),
                                   threads);
    }

    /// A scenario file whose first task bears the name of the file, so that documents can be told apart.
    void writeScenario(const std::string& filename) const {
        _folder.write("Plan.zelb/" + filename, test::scenarioText(filename));
    }

    static std::string nameOf(const std::shared_ptr<XMLDocument>& document) {
        return document ? stringValueForXQuery(document->rootElement().objectsForXQuery(XMLQuery("task")).at(1),
                                               XMLQuery("title"))
                              .value_or("")
                        : "none";
    }

    /// `attribute` is what the log shows of it.
    static std::string warningAbout(std::string_view attribute) {
        return fmt::format("WARINING: Baseline \"{}\" will not be exported because it is not the baseline visible in "
                           "the front Tarnwick document window.",
                           attribute);
    }

    void expectLoadFailure(const TableOfContents& contents) const {
        test::expectException(kMSPEXMLException, kLoadFailure, [&] { (void)load(contents); });
    }

    test::TempFolder _folder;
    test::LogCapture _log;
};

TEST_F(DocumentLoader, FrontWindowChoosesMainDocumentAndBaselineAndTheRestIsWarnedAbout) {
    TableOfContents contents;
    contents.scenarios = {
        {"s1", "old.xml", "Signed"}, {"s2", "now.xml", "Actual"}, {"s3", "never written", "Dream &amp; &lt;more&gt;"}};
    contents.windows = {{"s2", "s1"}, {"s3", "s2"}};
    writeScenario("old.xml");
    writeScenario("now.xml");

    const MSPESourceDocuments documents = load(contents);
    EXPECT_EQ(documents.tableOfContents->rootElement().name(), "document");
    EXPECT_EQ(nameOf(documents.mainDocument), "now.xml");
    ASSERT_EQ(documents.baselines.size(), 1u);
    EXPECT_EQ(nameOf(documents.baselines[0]), "old.xml");
    EXPECT_THAT(_log.lines(), ElementsAre(warningAbout("name=\"Dream &amp; &lt;more&gt;\"")));
}

TEST_F(DocumentLoader, ScenarioComparedWithItselfIsNoBaseline) {
    TableOfContents contents;
    contents.windows = {{"s1", "s1"}};
    const MSPESourceDocuments documents = load(contents);
    EXPECT_NE(documents.mainDocument, nullptr);
    EXPECT_THAT(documents.baselines, IsEmpty());
    EXPECT_THAT(_log.lines(), IsEmpty());
}

TEST_F(DocumentLoader, WithoutComparisonEveryOtherScenarioIsWarnedAbout) {
    TableOfContents contents;
    contents.scenarios = {
        {"s1", "plan.xml", "Actual"}, {"s2", "b.xml", "First"}, {std::nullopt, "c.xml", std::nullopt}};
    for (const std::optional<std::string>& comparison :
         {std::optional<std::string>(), std::optional<std::string>("")}) {
        contents.windows = {{"s1", comparison}};
        EXPECT_THAT(load(contents).baselines, IsEmpty());
    }
    EXPECT_THAT(_log.lines(), ElementsAre(warningAbout("name=\"First\""), warningAbout("(null)"),
                                          warningAbout("name=\"First\""), warningAbout("(null)")));
}

TEST_F(DocumentLoader, WindowThatEditsNoKnownScenarioGivesNoMainDocument) {
    TableOfContents contents;
    contents.windows = {{"s9"}};
    const MSPESourceDocuments documents = load(contents);
    EXPECT_EQ(documents.mainDocument, nullptr);
    EXPECT_EQ(documents.editingScenarioId, "s9");
    contents.windows = {{std::nullopt}};
    EXPECT_EQ(load(contents).editingScenarioId, std::nullopt);
}

TEST_F(DocumentLoader, TableOfContentsNeedsProjectAndWindow) {
    TableOfContents contents;
    contents.windows.clear();
    test::expectException(kTWMSPDIExporterException,
                          "MSPEXMLExporter.exportZELBBundle: No window elements found in source document.",
                          [&] { (void)load(contents); });
    contents.hasProject = false;
    test::expectException(kTWMSPDIExporterException,
                          "MSPEXMLExporter.exportZELBBundle: No 'project' element found in source document.",
                          [&] { (void)load(contents); });
}

TEST_F(DocumentLoader, FileIsReadOnceHoweverOftenItIsNamed) {
    TableOfContents contents;
    contents.scenarios.assign(11, {"s2", "./old.xml", "Signed"});
    contents.scenarios.push_back({"s1", "old.xml", "Actual"});
    contents.windows = {{"s1", "s2"}};
    writeScenario("old.xml");
    const MSPESourceDocuments documents = load(contents);
    ASSERT_EQ(documents.baselines.size(), 11U);
    EXPECT_THAT(documents.baselines, testing::Each(documents.mainDocument));
}

TEST_F(DocumentLoader, MoreBaselinesThanAFileHoldsFailBeforeOneIsLoaded) {
    TableOfContents contents;
    contents.scenarios.assign(12, {"s2", "never written", "Signed"});
    contents.windows = {{"s1", "s2"}};
    test::expectException("TooManyBaselinesException", "Limit for 10 baselines exceeded",
                          [&] { (void)load(contents); });
    contents.windows = {{"s2", "s2"}};
    expectLoadFailure(contents);
}

TEST_F(DocumentLoader, FileNamesStayInsideTheBundle) {
    _folder.write("outside.xml", test::scenarioText("outside"));
    const std::string absolute = _folder.write("Plan.zelb/absolute.xml", test::scenarioText("absolute"));
    _folder.makeFolder("elsewhere/folder");
    std::filesystem::create_directory_symlink(_folder.path("elsewhere/folder"), _folder.path("Plan.zelb/link"));
    _folder.write("elsewhere/plan.xml", test::scenarioText("elsewhere"));
    TableOfContents contents;
    for (const std::string& filename : {std::string("../outside.xml"), std::string("sub/../../outside.xml"),
                                        std::string(".."), std::string("."), std::string(), absolute}) {
        SCOPED_TRACE(filename);
        contents.scenarios[0].filename = filename;
        expectLoadFailure(contents);
    }
    contents.scenarios[0].filename = std::nullopt;
    expectLoadFailure(contents);

    writeScenario("sub/inner.xml");
    contents.scenarios[0].filename = "./sub/..//sub/inner.xml";
    EXPECT_EQ(nameOf(load(contents).mainDocument), "sub/inner.xml");
    contents.scenarios[0].filename = "link/../plan.xml";
    EXPECT_EQ(nameOf(load(contents).mainDocument), "Task");
}

TEST_F(DocumentLoader, FaultsAreToldInTheOrderOfTheScenariosForAnyNumberOfThreads) {
    TableOfContents contents;
    contents.scenarios = {{"b", "b0.xml", ""}, {"s1", "now.xml", ""}, {"b", "b1.xml", ""}, {"x", "x.xml", ""},
                          {"b", "b0.xml", ""}, {"b", "missing", ""},  {"b", "b2.xml", ""}};
    contents.windows = {{"s1", "b"}};
    const std::string worthAThread(100'000, ' ');
    std::vector<std::vector<std::string>> logs;
    for (const int threads : {1, 2, 4}) {
        for (const char* name : {"b0.xml", "now.xml", "b1.xml", "b2.xml"})
            _folder.write(std::string("Plan.zelb/") + name,
                          "<scenario><a>&nobody;</a>\n<a>&nothing;</a></scenario>" + worthAThread);
        const test::LogCapture log;
        test::expectException(kMSPEXMLException, kLoadFailure, [&] { (void)load(contents, threads); });
        logs.push_back(log.lines());
    }
    EXPECT_EQ(logs[0].size(), 3U * 2 + 1) << "the last baseline comes after the failure";
    EXPECT_EQ(logs[1], logs[0]);
    EXPECT_EQ(logs[2], logs[0]);
}

} // namespace
} // namespace brackwater
