#include "MPPXMLDOMFilter/Corrections/RtfNotes.h"

#include "MPPXMLDOMFilter/Model/MPPProject.h"

#include <gtest/gtest.h>

namespace brackwater::test {
namespace {

std::string framed(const std::string& paragraphs) {
    return R"({\rtf1\ansi\ansicpg1252\deff0\deflang1033{\fonttbl{\f0\fswiss\fprq2\fcharset0 Arial;}})"
           "\r\n"
           R"(\viewkind4\uc1\pard\f0\fs16 )" +
           paragraphs + "}\r\n";
}

TEST(RtfNotes, EachLineIsAParagraphAndNoCharacterIsLost) {
    struct Case {
        std::string notes;
        std::string paragraphs;
    };
    const Case cases[] = {
        {"one\n", "one\\par\r\n"},
        {"one\n\ntwo\n", "one\\par\r\n\\par\r\ntwo\\par\r\n"},
        {"no end", "no end\\par\r\n"},
        {"a\tb\n", "a\\tab b\\par\r\n"},
        {"{\\par}\n", "\\{\\\\par\\}\\par\r\n"},
        {"Grüße\n", "Gr\\'fc\\'dfe\\par\r\n"},
        {"€ – ’\n", "\\'80 \\'96 \\'92\\par\r\n"},
        {"中\n", "\\u20013\\'3f\\par\r\n"},
        {"\u0081\n", "\\u129\\'3f\\par\r\n"},
        {"\uFFFD\U0001F600\n", "\\u-3\\'3f\\u-10179\\'3f\\u-8704\\'3f\\par\r\n"},
    };
    for (const Case& row : cases)
        EXPECT_EQ(rtfOfNotes(row.notes), framed(row.paragraphs)) << row.notes;
}

TEST(RtfNotes, EmptyNotesAreAbsent) {
    MPPProject project;
    project.tasks = {std::make_shared<MPPTask>(), std::make_shared<MPPTask>()};
    project.resources = {std::make_shared<MPPResource>()};
    project.tasks[0]->notes = "a\n";
    project.resources[0]->notes = "";
    composeNotes(project);
    EXPECT_EQ(project.tasks[0]->notes, framed("a\\par\r\n"));
    EXPECT_TRUE(project.tasks[0]->notesAreRtf);
    EXPECT_FALSE(project.tasks[1]->notesAreRtf || project.resources[0]->notes || project.resources[0]->notesAreRtf);
}

} // namespace
} // namespace brackwater::test
