#include "Platform/TextFile.h"

#include "support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace brackwater {
namespace {

using testing::ElementsAre;

TEST(TextLines, EveryNewlineCharacterSeparatesOnItsOwn) {
    EXPECT_THAT(componentsSeparatedByNewlines("a\nb\rc\vd\fe"), ElementsAre("a", "b", "c", "d", "e"));
    EXPECT_THAT(componentsSeparatedByNewlines("a\xC2\x85"
                                              "b\xE2\x80\xA8"
                                              "c\xE2\x80\xA9"
                                              "d"),
                ElementsAre("a", "b", "c", "d"));
    EXPECT_THAT(componentsSeparatedByNewlines("a\r\nb"), ElementsAre("a", "", "b"));
}

TEST(TextLines, TextBehindTheLastNewlineIsALineEvenWhenEmpty) {
    EXPECT_THAT(componentsSeparatedByNewlines(""), ElementsAre(""));
    EXPECT_THAT(componentsSeparatedByNewlines("\n"), ElementsAre("", ""));
}

TEST(TextLines, CharactersThatShareBytesWithANewlineStayWhole) {
    // A with ring, a with ogonek and an ellipsis hold bytes of newline characters; a tab is no newline.
    EXPECT_THAT(componentsSeparatedByNewlines("\xC3\x85\xC4\x85\xE2\x80\xA6\t"),
                ElementsAre("\xC3\x85\xC4\x85\xE2\x80\xA6\t"));
    EXPECT_THAT(componentsSeparatedByNewlines("a\xE2\x80"), ElementsAre("a\xE2\x80"));
}

class TextFile : public testing::Test {
protected:
    std::string write(std::string_view bytes) const { return _folder.write("text.txt", bytes); }

    const test::TempFolder _folder;
};

TEST_F(TextFile, GivesItsTextWithoutTheByteOrderMark) {
    EXPECT_EQ(stringWithContentsOfFile(write("\xEF\xBB\xBFпуть\n")), "путь\n");
    EXPECT_EQ(stringWithContentsOfFile(write("")), "");
    const std::string zeros("\0a\0\0", 4);
    EXPECT_EQ(stringWithContentsOfFile(write(zeros)), zeros);
    const std::string large(200'000, 'x');
    EXPECT_EQ(stringWithContentsOfFile(write(large)), large);
}

TEST_F(TextFile, GivesNothingWhereTheTextCannotBeRead) {
    EXPECT_EQ(stringWithContentsOfFile(write("a\xFFz")), std::nullopt);
    EXPECT_EQ(stringWithContentsOfFile(write("cut \xE2\x80")), std::nullopt);
    EXPECT_EQ(stringWithContentsOfFile(write(std::string("a\0\xFF", 3))), std::nullopt);
    EXPECT_EQ(stringWithContentsOfFile(_folder.path()), std::nullopt);
    EXPECT_EQ(stringWithContentsOfFile(_folder.path("missing.txt")), std::nullopt);
}

} // namespace
} // namespace brackwater
