#include "make-template/CompoundFileOutput.h"
#include "make-template/TemplateTree.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <sys/wait.h>

namespace brackwater::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

class Program : public testing::Test {
protected:
    /// Runs the program with these arguments in a shell and keeps what it wrote.
    int run(const std::string& arguments) {
        const std::string command = std::string(BRACKWATER_BINARY_DIR "/bin/mppinspect ") + arguments + " >" +
                                    _folder.path("out") + " 2>" + _folder.path("err");
        const int status = std::system(command.c_str()); // NOLINT(cert-env33-c): the command is the test's own
        out = _folder.read("out");
        err = _folder.read("err");
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    std::string templateFile() {
        layout::writeCompoundFile(_folder.path("T.mpp"), layout::templateTree(layout::VersionFolder::Project2007));
        return _folder.path("T.mpp");
    }

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

TEST_F(Program, ShowsTheSectionsThatItIsAskedFor) {
    EXPECT_EQ(run("--calendars --entries " + templateFile()), 0);
    EXPECT_THAT(out, StartsWith("Calendars (2)\n"));
    EXPECT_THAT(out, HasSubstr("   112/TBkndTask/Var2Data"));
    EXPECT_THAT(out, HasSubstr("\\x01CompObj"));
    EXPECT_THAT(out, Not(HasSubstr("Resources")));
}

TEST_F(Program, ExplainsItselfWhenTheArgumentsAreWrong) {
    for (const char* arguments : {"", "--nonsense x.mpp", "a.mpp b.mpp", "--check", "--check --tasks x.mpp",
                                  "--json --check x.mpp", "--gantt x.html"}) {
        EXPECT_EQ(run(arguments), 2) << arguments;
        EXPECT_THAT(err, StartsWith("Usage: mppinspect [OPTION ...] FILE.mpp\n"));
        EXPECT_THAT(out, IsEmpty());
    }
}

TEST_F(Program, NamesAFileThatIsNone) {
    EXPECT_EQ(run(_folder.path("missing.mpp")), 1);
    EXPECT_THAT(err, StartsWith("mppinspect: cannot open '" + _folder.path("missing.mpp")));
    EXPECT_EQ(run(_folder.write("text.mpp", "no project")), 1);
    EXPECT_THAT(err, HasSubstr("is not a compound file"));
}

TEST_F(Program, ChecksATemplateAndTellsByItsStatus) {
    EXPECT_EQ(run("--check " + templateFile()), 0);
    EXPECT_EQ(out, "nothing found\n");
    layout::writeCompoundFile(_folder.path("T10.mpp"), layout::templateTree(layout::VersionFolder::Project2010));
    EXPECT_EQ(run("--check " + _folder.path("T10.mpp")), 1);
    EXPECT_THAT(out, StartsWith("error: 112: the storage is missing"));
}

TEST_F(Program, WritesThePageToTheFileOfItsName) {
    EXPECT_EQ(run("--gantt " + _folder.path("Plan.html") + " " + templateFile()), 0);
    EXPECT_THAT(out, IsEmpty());
    EXPECT_THAT(_folder.read("Plan.html"), StartsWith("<!DOCTYPE html>\n"));
    EXPECT_THAT(_folder.read("Plan.html"), HasSubstr("The file holds no tasks."));
    EXPECT_EQ(run("--gantt " + _folder.path("no/such/Plan.html") + " " + templateFile()), 1);
    EXPECT_THAT(err, HasSubstr("cannot write '" + _folder.path("no/such/Plan.html") + "': No such file"));
    EXPECT_EQ(run("--gantt /dev/full " + templateFile()), 1);
    EXPECT_THAT(err, HasSubstr("cannot write the whole of '/dev/full'"));
}

} // namespace
} // namespace brackwater::test
