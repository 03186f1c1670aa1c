#include "make-template/CompoundFileOutput.h"
#include "make-template/TemplateTree.h"
#include "mppinspect/PageFile.h"
#include "support/CompoundFile.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <sys/wait.h>

namespace brackwater::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

class Program : public testing::Test {
protected:
    /// Runs a command in a shell and keeps what it wrote.
    int shell(const std::string& command) {
        const std::string whole = "{ " + command + "; } >" + _folder.path("out") + " 2>" + _folder.path("err");
        const int status = std::system(whole.c_str()); // NOLINT(cert-env33-c): the command is the test's own
        out = _folder.read("out");
        err = _folder.read("err");
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    int run(const std::string& arguments) { return shell(kProgram + arguments); }
    /// The same with a failure that must be told in one line and leave nothing on standard output.
    int failed(const std::string& arguments) {
        const int status = run(arguments);
        EXPECT_THAT(err, StartsWith("mppinspect: ")) << arguments;
        EXPECT_EQ(std::count(err.begin(), err.end(), '\n'), 1) << err;
        EXPECT_THAT(out, IsEmpty()) << arguments;
        return status;
    }

    std::string templateFile() {
        layout::writeCompoundFile(_folder.path("T.mpp"), layout::templateTree(layout::VersionFolder::Project2007));
        return _folder.path("T.mpp");
    }

    const std::string kProgram = BRACKWATER_BINARY_DIR "/bin/mppinspect ";
    TempFolder _folder;
    std::string out, err;
};

TEST_F(Program, ShowsEverySectionOfAFile) {
    EXPECT_EQ(run(templateFile()), 0);
    EXPECT_THAT(out, StartsWith("Document: Microsoft Project 12.0, MSProject.MPP12, MSProject.Project.9\n"));
    for (const char* heading : {"Entries (", "Properties (", "Tasks (1)", "Resources (1)", "Assignments (0)",
                                "Links (0)", "Calendars (2)", "What does not fit (0)"})
        EXPECT_THAT(out, HasSubstr(heading));
    EXPECT_THAT(err, IsEmpty());
}

TEST_F(Program, ShowsTheSectionsThatItIsAskedForInTheirOrder) {
    EXPECT_EQ(run("--calendars --entries " + templateFile()), 0);
    EXPECT_THAT(out, StartsWith("Calendars (2)\n"));
    EXPECT_THAT(out, HasSubstr("   112/TBkndTask/Var2Data"));
    EXPECT_THAT(out, HasSubstr("\\x01CompObj"));
    EXPECT_THAT(out, Not(HasSubstr("Resources")));
    EXPECT_EQ(run("--calendars --csv " + _folder.path("T.mpp")), 0);
    EXPECT_THAT(out, StartsWith("id,name,base,resource,week\r\n1,Standard,,,"));
    EXPECT_EQ(run("--entries --width 30 " + _folder.path("T.mpp")), 0);
    EXPECT_THAT(out, HasSubstr("\n   112/TBkndAssn/Fixed…"));
}

TEST_F(Program, TellsHelpAndVersionOnStandardOutput) {
    for (const std::string program : {"mppinspect", "make-template"}) {
        const std::string path = BRACKWATER_BINARY_DIR "/bin/" + program;
        EXPECT_EQ(shell(path + " --help"), 0);
        EXPECT_THAT(out, HasSubstr("Usage: " + program)) << err;
        EXPECT_EQ(shell(path + " --version"), 0);
        EXPECT_THAT(out, StartsWith(program + " 1."));
        for (const char* arguments : {" --nonsense T.mpp", " --nonsense"}) {
            EXPECT_EQ(shell(path + arguments), 2);
            EXPECT_THAT(err, StartsWith(program + ": The following argument was not expected: --nonsense"));
        }
    }
}

TEST_F(Program, NamesAWrongArgumentInOneLine) {
    for (const auto& [arguments, named] :
         {std::pair{"", "FILE.mpp is required"}, std::pair{"a.mpp b.mpp", "b.mpp"},
          std::pair{"--check --tasks x.mpp", "--tasks excludes --check"},
          std::pair{"--json --csv --tasks x.mpp", "--csv excludes --json"}, std::pair{"--csv x.mpp", "names one table"},
          std::pair{"--tasks=no x.mpp", "tasks was given"}, std::pair{"--gantt x.html", "FILE.mpp is required"},
          std::pair{"--force x.mpp", "--force requires --gantt"},
          std::pair{"--gantt x.html --from 2027-02-30 x.mpp", "'2027-02-30' is no day"},
          std::pair{"--gantt x.html --scale hours x.mpp", "hours"}, std::pair{"b \"$(printf '\\033')\"", "\\x1b"}}) {
        EXPECT_EQ(failed(arguments), 2) << arguments;
        EXPECT_THAT(err, HasSubstr(named));
    }
}

TEST_F(Program, RefusesWhatIsNoProjectFileOfItsFormat) {
    const auto file = [this](const char* name, const CompoundTree& tree) {
        writeCompoundFile(_folder.path(name), tree);
        return _folder.path(name);
    };
    EXPECT_EQ(shell("mkfifo " + _folder.path("pipe")), 0);
    for (const auto& [path, reason] :
         {std::pair{_folder.path("missing.mpp"), "cannot open '"}, std::pair{_folder.path("pipe"), "no regular file"},
          std::pair{std::string("/dev/zero"), "no regular file"}, std::pair{_folder.path(), "no regular file"},
          std::pair{_folder.write("text.mpp", "no project"), "is not a compound file"},
          std::pair{file("9.mpp", {compObj("Microsoft Project 11.0", "MSProject.MPP9")}), "2003 or earlier"},
          std::pair{file("14.mpp", {compObj("Microsoft Project 14.0", "MSProject.MPP14"), storage("   114", {})}),
                    "2010 or later (MSProject.MPP14)"},
          std::pair{file("none.mpp", {compObj2007()}), "holds no project"}})
        for (const char* options : {"", "--json ", "--tasks --csv ", "--gantt page.html "}) {
            EXPECT_EQ(failed(options + path), 1) << path;
            EXPECT_THAT(err, HasSubstr(reason));
        }
    EXPECT_EQ(run("--entries " + _folder.path("none.mpp")), 0);
}

TEST_F(Program, ChecksATemplateAndTellsByItsStatus) {
    EXPECT_EQ(run("--check " + templateFile()), 0);
    EXPECT_EQ(out, "nothing found\n");
    layout::writeCompoundFile(_folder.path("T10.mpp"), layout::templateTree(layout::VersionFolder::Project2010));
    EXPECT_EQ(run("--check " + _folder.path("T10.mpp")), 1);
    EXPECT_THAT(out, StartsWith("error: 112: the storage is missing"));
    EXPECT_EQ(run("--json --check " + _folder.path("T10.mpp")), 1);
    EXPECT_THAT(out, HasSubstr("\"severity\": \"error\",\n      \"where\": \"112\""));
}

TEST_F(Program, ReplacesOnlyPagesOfItsOwn) {
    const std::string plan = templateFile(), before = _folder.read("T.mpp"), page = _folder.path("Plan.html");
    EXPECT_EQ(run("--gantt " + page + " " + plan), 0);
    EXPECT_THAT(_folder.read("Plan.html"), StartsWith("<!DOCTYPE html>\n"));
    EXPECT_EQ(run("--gantt " + page + " " + plan), 0) << err;
    EXPECT_EQ(run("--gantt - " + plan), 0);
    EXPECT_THAT(_folder.read("Plan.html"), StartsWith(out));

    _folder.write("other", "a letter");
    std::filesystem::create_symlink("T.mpp", _folder.path("link"));
    std::filesystem::create_symlink("nowhere", _folder.path("dangling"));
    for (const auto& [target, reason] :
         {std::pair{"other", "exists and is no page"}, std::pair{"T.mpp", "is the project file itself"},
          std::pair{"link", "is the project file itself"}, std::pair{"dangling", "leads nowhere"},
          std::pair{"no/such/Plan.html", "No such file"}}) {
        EXPECT_EQ(failed("--gantt " + _folder.path(target) + " " + plan), 1) << target;
        EXPECT_THAT(err, HasSubstr(reason));
    }
    EXPECT_EQ(failed("--force --gantt " + plan + " " + plan), 1);
    EXPECT_EQ(failed("--force --gantt /dev/full " + plan), 1);
    EXPECT_EQ(_folder.read("other"), "a letter");
    EXPECT_EQ(_folder.read("T.mpp"), before);
    EXPECT_EQ(run("--force --gantt " + _folder.path("other") + " " + plan), 0);
    EXPECT_EQ(_folder.read("other"), _folder.read("Plan.html"));
}

TEST(PageFile, LeavesNothingWhenASignalEndsTheProgram) {
    const TempFolder folder;
    const auto run = [&folder] {
        inspect::PageFile page(folder.path("Plan.html"), "Plan.mpp", false);
        page.write("<!DOCTYPE html>\n");
        std::raise(SIGTERM);
        page.write("<html>\n");
    };
    EXPECT_EXIT(run(), testing::KilledBySignal(SIGTERM), "");
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST_F(Program, TellsOutputThatIsCutShort) {
    const std::string plan = templateFile();
    for (const char* options : {"", "--json ", "--check ", "--entries --csv ", "--gantt - ", "--help "}) {
        EXPECT_EQ(shell(kProgram + options + plan + " >/dev/full"), 1) << options;
        EXPECT_EQ(err, "mppinspect: cannot write the whole of the output: No space left on device\n");
    }
    const std::string folder = _folder.makeFolder("pages");
    EXPECT_EQ(shell("ulimit -f 1; " + kProgram + "--gantt " + folder + "/Plan.html " + plan), 1);
    EXPECT_THAT(err, HasSubstr("File too large"));
    EXPECT_TRUE(std::filesystem::is_empty(folder));
}

TEST_F(Program, KeepsItsStatusWhereStandardErrorTakesNothing) {
    EXPECT_EQ(shell(kProgram + "none.mpp 2>/dev/full"), 1);
    EXPECT_EQ(shell(kProgram + "--none 2>/dev/full"), 2);
    EXPECT_EQ(shell(BRACKWATER_BINARY_DIR "/bin/make-template --none 2>/dev/full"), 2);
    EXPECT_EQ(shell(BRACKWATER_BINARY_DIR "/bin/make-template none/T.mpp 2>/dev/full"), 1);
}

TEST_F(Program, KeepsItsFilesApartFromDescriptorsThatAreClosed) {
    const std::string plan = templateFile(), page = _folder.path("P.html"), gantt = kProgram + "--gantt " + page + " ";
    ASSERT_EQ(shell(gantt + plan), 0);
    const std::string whole = _folder.read("P.html"), before = _folder.read("T.mpp");
    for (int closed = 1; closed < 8; ++closed) {
        std::string how;
        for (int descriptor = 0; descriptor < 3; ++descriptor)
            if ((closed >> descriptor & 1) != 0)
                how += " " + std::to_string(descriptor) + ">&-";
        EXPECT_EQ(shell(gantt + plan + how), 0) << how;
        EXPECT_EQ(_folder.read("P.html"), whole) << how;
        EXPECT_EQ(shell(kProgram + "--json " + plan + how), (closed & 2) != 0 ? 1 : 0) << how;
        EXPECT_EQ(shell(kProgram + "--json " + page + how), 1) << how;
        EXPECT_EQ(_folder.read("T.mpp"), before) << how;
    }
}

} // namespace
} // namespace brackwater::test
