#include "TWMSPFilterRunners/Brackwater/BrackwaterRunner.h"

#include "support/CompoundFile.h"
#include "support/Environment.h"
#include "support/LogCapture.h"
#include "support/PlanBundle.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace brackwater {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsSupersetOf;
using testing::Not;
using testing::StartsWith;

class Runner : public testing::Test {
protected:
    void SetUp() override {
        test::writeCompoundFile(_template, {test::compObj2007(), test::stream("Other", test::patternBytes(5000))});
    }

    void setPreferences(const std::string& lines) const {
        _folder.write("config/lanthorn.Tarnwick2.MSPExportMPP.conf", "[Preferences]\n" + lines);
    }

    /// Runs the tool with these arguments after its name and returns all lines logged.
    std::vector<std::string> run(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), "/usr/local/bin/Brackwater");
        const test::LogCapture log;
        EXPECT_EQ(BrackwaterRunner().run(arguments), 0);
        return log.lines();
    }

    std::vector<std::string> runWithTemplate(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), {"--template-path", _template});
        return run(std::move(arguments));
    }

    std::vector<std::string> runList(const std::string& list, std::vector<std::string> output = {}) const {
        output.insert(output.begin(), {"--input-list", _folder.write("list.txt", list)});
        return runWithTemplate(std::move(output));
    }

    /// Expects the run to end with this failure.
    static void expectFailure(const std::vector<std::string>& lines, std::string_view name, const std::string& reason) {
        ASSERT_GE(lines.size(), 2u);
        EXPECT_EQ(lines.front(), "Brackwater Runner");
        EXPECT_EQ(*(lines.end() - 2), fmt::format("Exception: {}\n{}", name, reason));
        EXPECT_EQ(lines.back(), "Final clean up.");
    }

    test::TempFolder _folder;
    const test::ScopedEnvironment _preferencesFolder{"XDG_CONFIG_HOME", _folder.path("config").c_str()};
    const std::string _template = _folder.path("Template.mpp");
};

class RunnerWithBundle : public Runner {
protected:
    /// The output path logged by a run with this output argument.
    std::string outputPath(const std::vector<std::string>& output) const {
        std::vector<std::string> arguments = {_bundle};
        arguments.insert(arguments.end(), output.begin(), output.end());
        for (const std::string& line : runWithTemplate(arguments)) {
            if (line.starts_with("outputFilePath='"))
                return line.substr(16, line.size() - 17);
        }
        return "none";
    }

    const std::string _bundle = test::writeBundle(_folder, "My Plan.zelb");
};

constexpr const char* kUsage =
    "Too few arguments. Usage:\n"
    "  Brackwater --template-path <MPP_template_path> <input_ZELB_bundle_path> [<output_path>]\n"
    "  Brackwater --template-path <MPP_template_path> --input-list <input_list_path> [<output_path>]";

TEST_F(Runner, TooFewArgumentsOrAnotherFirstOptionShowTheUsage) {
    for (const std::vector<std::string>& arguments : {std::vector<std::string>(),
                                                      {"--template-path"},
                                                      {"--template-path", "missing.mpp"},
                                                      {"--Template-Path", _template, "Plan.zelb"},
                                                      {_template, "Plan.zelb", "Out.mpp"}})
        expectFailure(run(arguments), "CommandLineArgumentException", kUsage);
    const test::LogCapture log;
    EXPECT_EQ(BrackwaterRunner().run({}), 0);
    EXPECT_TRUE(log.contains("Too few arguments. Usage:\n   --template-path"));
}

TEST_F(Runner, TemplateIsCheckedByExtensionAndThenOnDisk) {
    expectFailure(run({"--template-path", "Template.mpt", "Plan.zelb"}), "CommandLineArgumentException",
                  "Template is not a valid MPP file: 'Template.mpt'");
    expectFailure(run({"--template-path", _folder.path("x/../No.mpp"), "Plan.zelb"}), "FileNotFoundException",
                  "MPP template file not found: " + _folder.path("No.mpp"));
    expectFailure(run({"--template-path", _folder.makeFolder("Folder.mpp"), "Plan.zelb"}), "FileNotFoundException",
                  "MPP template file not found: " + _folder.path("Folder.mpp"));
    // The extension check ignores case: this one gets as far as the bundle.
    std::filesystem::copy_file(_template, _folder.path("T.MPP"));
    expectFailure(run({"--template-path", _folder.path("T.MPP"), "Plan.txt"}), "CommandLineArgumentException",
                  "Input file is not a valid ZELB doc folder: 'Plan.txt'");
}

TEST_F(Runner, BundleIsCheckedByExtensionAndThenOnDisk) {
    expectFailure(runWithTemplate({_folder.path("Plan.zelb ")}), "CommandLineArgumentException",
                  "Input file is not a valid ZELB doc folder: '" + _folder.path("Plan.zelb ") + "'");
    expectFailure(runWithTemplate({_folder.path("./No.zelb/")}), "FileNotFoundException",
                  "Input file not found: " + _folder.path("No.zelb"));
    expectFailure(runWithTemplate({_folder.write("File.zelb", "")}), "FileNotFoundException",
                  "Input file is not a bundle (folder): " + _folder.path("File.zelb"));
}

TEST_F(Runner, ListFileIsChecked) {
    expectFailure(runWithTemplate({"--input-list"}), "CommandLineArgumentException",
                  "No input list found in command line.");
    expectFailure(runWithTemplate({"--input-list", _folder.path("none.txt")}), "FileNotFoundException",
                  "Input list not found or it is a directory: " + _folder.path("none.txt"));
    expectFailure(runWithTemplate({"--input-list", _folder.path() + "/"}), "FileNotFoundException",
                  "Input list not found or it is a directory: " + _folder.path());
    expectFailure(runList("Plan\xFF.zelb"), "FileNotFoundException",
                  "Input list file could not be read or empty: " + _folder.path("list.txt"));
}

TEST_F(Runner, EmptyListsAndCommentsExportNothing) {
    for (const std::string& list : {std::string(), std::string("\r\n"), std::string("::\0one\n::two.zelb\n", 17)})
        EXPECT_THAT(runList(list), ElementsAre("Brackwater Runner", StartsWith("MPP Template URL: 'file:///"),
                                               "### Import files from the list:", "Final clean up."));
}

TEST_F(Runner, SingleArgumentThatLooksLikeACommentIsSkipped) {
    for (const char* argument : {"::Plan.txt", ""})
        EXPECT_THAT(runWithTemplate({argument}),
                    ElementsAre("Brackwater Runner", StartsWith("MPP Template URL: "),
                                fmt::format("### Export single file: \"{}\"", argument), "Final clean up."));
}

TEST_F(RunnerWithBundle, LogsItsStepsInOrder) {
    std::vector<std::string> lines;
    for (const std::string& line : runWithTemplate({_bundle + "/"})) {
        if (line.starts_with("Brackwater") || line.starts_with("MPP Template") || line.starts_with("###") ||
            line.starts_with("outputFilePath") || line.starts_with("info:") || line.starts_with("Final"))
            lines.push_back(line);
    }
    const std::string folderUrl = "file://" + _folder.path();
    EXPECT_THAT(lines, ElementsAre("Brackwater Runner", "MPP Template URL: '" + folderUrl + "/Template.mpp/'",
                                   "### Export single file: \"" + _bundle + "/\"",
                                   "### Export from URL: '" + folderUrl + "/My%20Plan.zelb/'",
                                   "outputFilePath='" + _folder.path("My Plan.mpp") + "'",
                                   "### Write to URL: '" + folderUrl + "/My%20Plan.mpp'",
                                   "info: { InfoMSPDIProjectName = \"My Plan\"; }", "### Exporter SUCCEEDED.",
                                   "Final clean up."));
    EXPECT_TRUE(_folder.has("My Plan.mpp"));
}

TEST_F(RunnerWithBundle, OutputPathFollowsTheTable) {
    EXPECT_EQ(outputPath({}), _folder.path("My Plan.mpp"));
    EXPECT_EQ(outputPath({_folder.path("./New.mpp")}), _folder.path("New.mpp"));
    EXPECT_EQ(outputPath({_folder.write("Old.mpp", "old")}), _folder.path("Old.mpp"));
    EXPECT_EQ(outputPath({_folder.makeFolder("out") + "/"}), _folder.path("out/My Plan.mpp"));
    // A folder takes precedence, whatever its name.
    EXPECT_EQ(outputPath({_folder.makeFolder("folder.mpp")}), _folder.path("folder.mpp/My Plan.mpp"));
    EXPECT_EQ(outputPath({_folder.makeFolder("folder.MPP")}), _folder.path("folder.MPP/My Plan.mpp"));
    // Anything after the output is ignored.
    EXPECT_EQ(outputPath({_folder.path("Two.mpp"), "--whatever", "more"}), _folder.path("Two.mpp"));
    EXPECT_EQ(_folder.read("Old.mpp"), "old");
    EXPECT_TRUE(_folder.has("Old-1.mpp"));
}

TEST_F(RunnerWithBundle, OutputExtensionIsCaseSensitive) {
    for (const std::string name : {"Out.MPP", "Out.txt", "Out", ".mpp"}) {
        const auto lines = runWithTemplate({_bundle, _folder.path("./" + name)});
        expectFailure(lines, "CommandLineArgumentException",
                      "Output file extension is not 'mpp': " + _folder.path(name) + ".");
        EXPECT_THAT(lines, Not(Contains(StartsWith("outputFilePath="))));
    }
    expectFailure(runWithTemplate({_bundle, _folder.write("Old.MPP", "")}), "CommandLineArgumentException",
                  "Output file extension is not 'mpp': " + _folder.path("Old.MPP") + ".");
}

TEST_F(RunnerWithBundle, RelativePathsAreRelativeToTheWorkingFolder) {
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(_folder.path());
    const auto lines = run({"--template-path", "Template.mpp", "My Plan.zelb"});
    std::filesystem::current_path(before);
    EXPECT_THAT(lines,
                IsSupersetOf({std::string("outputFilePath='My Plan.mpp'"), std::string("### Exporter SUCCEEDED."),
                              "### Write to URL: 'file://" + _folder.path() + "/My%20Plan.mpp'"}));
    EXPECT_TRUE(_folder.has("My Plan.mpp"));
}

TEST_F(RunnerWithBundle, PathThroughALinkAndBackMeansTheSameFileInAllSteps) {
    _folder.makeFolder("a/b");
    std::filesystem::create_symlink("a/b", _folder.path("link"));
    test::writeBundle(_folder, "a/My Plan.zelb");
    _folder.write("a/My Plan.mpp", "of the other bundle");
    _folder.write("list.txt", "link/../My Plan.zelb");
    setPreferences("OverwriteFilterTarget=YES\n");
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(_folder.path());
    const auto lines = run({"--template-path", "link/../Template.mpp", "--input-list", "link/../list.txt"});
    std::filesystem::current_path(before);
    const std::string folderUrl = "file://" + _folder.path();
    EXPECT_THAT(
        lines, IsSupersetOf({"MPP Template URL: '" + folderUrl + "/Template.mpp/'",
                             "### Export from URL: '" + folderUrl + "/My%20Plan.zelb/'",
                             std::string("outputFilePath='My Plan.mpp'"),
                             "Output: '" + _folder.path("My Plan.mpp") + "'", std::string("### Exporter SUCCEEDED.")}));
    EXPECT_TRUE(_folder.has("My Plan.mpp"));
    EXPECT_EQ(_folder.read("a/My Plan.mpp"), "of the other bundle");
}

TEST_F(Runner, BundleExtensionInUpperCaseGivesLowerCaseNames) {
    const std::string bundle = test::writeBundle(_folder, "Plan.ZELB");
    EXPECT_THAT(runWithTemplate({bundle}), Contains("outputFilePath='" + _folder.path("Plan.mpp") + "'"));
    setPreferences("IncludeInputExtension=YES\n");
    EXPECT_THAT(runWithTemplate({bundle}), Contains("outputFilePath='" + _folder.path("Plan.zelb.mpp") + "'"));
    EXPECT_THAT(runWithTemplate({bundle, _folder.makeFolder("out")}),
                Contains("outputFilePath='" + _folder.path("out/Plan.zelb.mpp") + "'"));
}

TEST_F(RunnerWithBundle, OverwritingRemovesTheExistingOutput) {
    _folder.write("Out.mpp", "old");
    setPreferences("OverwriteFilterTarget=true\n");
    EXPECT_THAT(runWithTemplate({_bundle, _folder.path("Out.mpp")}), Contains("### Exporter SUCCEEDED."));
    EXPECT_NE(_folder.read("Out.mpp"), "old");
    EXPECT_FALSE(_folder.has("Out-1.mpp"));

    _folder.write("out/My Plan.mpp/inner/file", "a folder in the way");
    EXPECT_THAT(runWithTemplate({_bundle, _folder.path("out")}), Contains("### Exporter SUCCEEDED."));
    EXPECT_TRUE(std::filesystem::is_regular_file(_folder.path("out/My Plan.mpp")));
}

TEST_F(Runner, ListExportsItsLinesInOrderDespiteAFailedExport) {
    const std::string first = test::writeBundle(_folder, "a.zelb");
    const std::string broken = _folder.makeFolder("b.zelb");
    const std::string last = test::writeBundle(_folder, "c.zelb");
    const auto lines = runList(first + "\r\n:: a comment\n\n" + broken + "\n" + last + "\n");
    EXPECT_THAT(lines, IsSupersetOf({"    \"" + first + "\"", "    \"" + broken + "\"", "    \"" + last + "\""}));
    EXPECT_THAT(lines, Not(Contains(StartsWith("    \"::"))));
    std::vector<std::string> results;
    std::copy_if(lines.begin(), lines.end(), std::back_inserter(results),
                 [](const std::string& line) { return line.starts_with("### Exporter"); });
    EXPECT_THAT(results, ElementsAre("### Exporter SUCCEEDED.", "### Exporter FAILED.", "### Exporter SUCCEEDED."));
    EXPECT_TRUE(_folder.has("a.mpp"));
    EXPECT_TRUE(_folder.has("c.mpp"));
}

TEST_F(Runner, BadLineStopsTheWholeList) {
    const std::string first = test::writeBundle(_folder, "a.zelb");
    const std::string last = test::writeBundle(_folder, "c.zelb");
    expectFailure(runList(first + "\n " + last + ".txt\n" + last), "CommandLineArgumentException",
                  "Input file is not a valid ZELB doc folder: ' " + last + ".txt'");
    EXPECT_TRUE(_folder.has("a.mpp"));
    EXPECT_FALSE(_folder.has("c.mpp"));
}

TEST_F(Runner, OneOutputIsUsedForEveryLineOfAList) {
    const std::string list = test::writeBundle(_folder, "a.zelb") + "\n" + test::writeBundle(_folder, "b.zelb");
    const std::string output = _folder.path("Out.mpp");
    EXPECT_THAT(runList(list, {output}),
                IsSupersetOf({"Output: '" + output + "'", "Output: '" + _folder.path("Out-1.mpp") + "'"}));
    setPreferences("OverwriteFilterTarget=1\n");
    const auto lines = runList(list, {_folder.path("Over.mpp")});
    EXPECT_THAT(lines, Contains("Output: '" + _folder.path("Over.mpp") + "'").Times(2));
    EXPECT_FALSE(_folder.has("Over-1.mpp"));
}

} // namespace
} // namespace brackwater
