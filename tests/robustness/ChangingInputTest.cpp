// Files that change or vanish between two looks at them. The log's lines tell where an export stands, so the change
// comes exactly there.
#include "MPPXMLDOMFilter/Export/MSPEMPPExporter.h"
#include "Platform/Log/Log.h"
#include "support/CompoundFile.h"
#include "support/PlanBundle.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace brackwater::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

namespace fs = std::filesystem;

/// Collects the log, and acts once when a line begins with the given text.
class ActingLog : public LogSink {
public:
    ActingLog(std::string trigger, std::function<void()> action)
        : _trigger(std::move(trigger)), _action(std::move(action)) {}
    void receive(std::string_view text) override {
        lines.emplace_back(text);
        if (_action && text.starts_with(_trigger)) {
            _action();
            _action = nullptr;
        }
    }
    [[nodiscard]] bool hasActed() const { return !_action; }

    std::vector<std::string> lines;

private:
    std::string _trigger;
    std::function<void()> _action;
};

class ChangingInput : public testing::Test {
protected:
    void SetUp() override {
        writeTemplate(50'000);
        // The scenario that is not exported is told of between the table of contents and the scenario that is.
        TableOfContents contents;
        contents.scenarios = {{"s0", "other.xml", "Other"}, {"s1", "plan.xml", "Actual"}};
        writeBundle(_folder, "Plan.zelb", contents);
    }

    void writeTemplate(std::size_t size) {
        writeCompoundFile(_template, {compObj2007(), stream("Other", patternBytes(size)), stream("Last", {})});
    }

    /// Exports, with the change at the line; asks for a failed export and gives the line before the last.
    std::string failureWith(const std::string& line, std::function<void()> change) {
        ActingLog log(line, std::move(change));
        EXPECT_FALSE(MSPEMPPExporter({}).exportZelbBundle(FileURL::fileURLWithPath(_folder.path("Plan.zelb"), true),
                                                          FileURL::fileURLWithPath(_output, false),
                                                          FileURL::fileURLWithPath(_template, false)));
        EXPECT_TRUE(log.hasActed()) << line;
        for (const auto& entry : fs::directory_iterator(_folder.path("out")))
            EXPECT_FALSE(entry.path().filename().native().starts_with(".gsf-save-")) << entry.path();
        const bool told = log.lines.back() == "MSPEMPPExporter: Finished with success=NO";
        return log.lines.at(log.lines.size() - (told ? 2 : 1));
    }

    TempFolder _folder;
    const std::string _template = _folder.path("Template.mpp");
    const std::string _output = _folder.makeFolder("out") + "/Plan.mpp";
};

TEST_F(ChangingInput, ScenarioThatIsReplacedAfterTheTableOfContentsWasReadIsTold) {
    const std::string plan = _folder.path("Plan.zelb/plan.xml");
    const std::vector<std::function<void()>> changes = {
        [&] { fs::remove(plan); },
        [&] { fs::resize_file(plan, 0); },
        [&] { fs::resize_file(plan, fs::file_size(plan) / 2); },
        [&] {
            fs::remove(plan);
            fs::create_directory(plan);
        },
        [&] {
            fs::remove(plan);
            mkfifo(plan.c_str(), 0600);
        },
        [&] { fs::remove_all(_folder.path("Plan.zelb")); },
    };
    for (std::size_t i = 0; i < changes.size(); ++i) {
        fs::remove_all(_folder.path("Plan.zelb"));
        SetUp();
        EXPECT_THAT(failureWith("WARINING: Baseline \"name=\"Other\"\"", changes[i]),
                    testing::AllOf(StartsWith("EXCEPTION: MSPEXMLException\n"), HasSubstr("plan.xml'")))
            << i;
        EXPECT_FALSE(fs::exists(_output)) << i;
    }
}

TEST_F(ChangingInput, BundleThatVanishesAfterItWasReadIsNotMissed) {
    ActingLog log("Mapping Tarnwick document", [&] { fs::remove_all(_folder.path("Plan.zelb")); });
    EXPECT_TRUE(MSPEMPPExporter({}).exportZelbBundle(FileURL::fileURLWithPath(_folder.path("Plan.zelb"), true),
                                                     FileURL::fileURLWithPath(_output, false),
                                                     FileURL::fileURLWithPath(_template, false)));
    EXPECT_TRUE(log.hasActed());
    EXPECT_EQ(readCompoundFile(_output).size(), 3U);
}

TEST_F(ChangingInput, TemplateThatVanishesOrIsReplacedStopsTheWriting) {
    for (const char* line : {"Mapping Tarnwick document", "writeProject started"}) {
        EXPECT_THAT(failureWith(line, [&] { fs::remove(_template); }),
                    StartsWith("WARNING: Writing stopped at '" + _template + "': the template cannot be "));
        EXPECT_FALSE(fs::exists(_output));
        SetUp();
        EXPECT_THAT(failureWith(line,
                                [&] {
                                    fs::remove(_template);
                                    mkfifo(_template.c_str(), 0600);
                                }),
                    StartsWith("WARNING: Writing stopped at '" + _template + "': the template cannot be "));
        EXPECT_FALSE(fs::exists(_output));
        fs::remove(_template);
        SetUp();
    }
}

TEST_F(ChangingInput, LargeTemplateThatIsCutWhileItIsCopiedStopsAtTheEntry) {
    writeTemplate(5'000'000);
    EXPECT_THAT(failureWith("opening a file at path " + _output, [&] { fs::resize_file(_template, 2048); }),
                testing::MatchesRegex("WARNING: Writing stopped at '.*': .+"));
}

TEST_F(ChangingInput, SmallTemplateIsReadAtOnce) {
    ActingLog log("opening a file at path " + _output, [&] { fs::resize_file(_template, 2048); });
    EXPECT_TRUE(MSPEMPPExporter({}).exportZelbBundle(FileURL::fileURLWithPath(_folder.path("Plan.zelb"), true),
                                                     FileURL::fileURLWithPath(_output, false),
                                                     FileURL::fileURLWithPath(_template, false)));
    EXPECT_TRUE(log.hasActed());
    EXPECT_EQ(readCompoundFile(_output).size(), 3U);
}

TEST_F(ChangingInput, WhatAppearsAtTheDestinationStaysAndTheExportTakesTheNextNumber) {
    const std::vector<std::function<void()>> changes = {
        [&] { _folder.write("out/Plan.mpp/inner", "folder"); },
        [&] { _folder.write("out/Plan.mpp", "file"); },
        [&] { fs::create_symlink("nowhere", _output); },
    };
    for (std::size_t i = 0; i < changes.size(); ++i) {
        fs::remove_all(_folder.path("out"));
        _folder.makeFolder("out");
        ActingLog log("opening a file at path " + _output, changes[i]);
        EXPECT_TRUE(MSPEMPPExporter({}).exportZelbBundle(FileURL::fileURLWithPath(_folder.path("Plan.zelb"), true),
                                                         FileURL::fileURLWithPath(_output, false),
                                                         FileURL::fileURLWithPath(_template, false)));
        EXPECT_TRUE(log.hasActed());
        const std::string written = _folder.path("out/Plan-1.mpp");
        EXPECT_THAT(log.lines,
                    testing::Contains("WARNING: '" + _output + "' has been taken meanwhile. The export stands at '" +
                                      written + "'."));
        EXPECT_EQ(readCompoundFile(written).size(), 3U);
        EXPECT_EQ(std::distance(fs::directory_iterator(_folder.path("out")), fs::directory_iterator()), 2) << i;
    }
    EXPECT_EQ(fs::read_symlink(_output), "nowhere");
}

} // namespace
} // namespace brackwater::test
