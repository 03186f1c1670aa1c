#include "Platform/TextFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

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
    std::string write(const std::string& bytes) const {
        std::ofstream(_path, std::ios::binary) << bytes;
        return _path;
    }
    void TearDown() override { std::filesystem::remove(_path); }

    const std::string _path = testing::TempDir() + "brackwater-text-file.txt";
};

TEST_F(TextFile, GivesItsTextWithoutTheByteOrderMark) {
    EXPECT_EQ(stringWithContentsOfFile(write("\xEF\xBB\xBFпуть\n")), "путь\n");
    EXPECT_EQ(stringWithContentsOfFile(write("")), "");
    const std::string large(200'000, 'x');
    EXPECT_EQ(stringWithContentsOfFile(write(large)), large);
}

TEST_F(TextFile, GivesNothingWhereTheTextCannotBeRead) {
    EXPECT_EQ(stringWithContentsOfFile(write("a\xFFz")), std::nullopt);
    EXPECT_EQ(stringWithContentsOfFile(write("cut \xE2\x80")), std::nullopt);
    EXPECT_EQ(stringWithContentsOfFile(write(std::string("a\0b", 3))), std::nullopt);
    EXPECT_EQ(stringWithContentsOfFile(testing::TempDir()), std::nullopt);
    EXPECT_EQ(stringWithContentsOfFile(_path + ".missing"), std::nullopt);
}

} // namespace
} // namespace brackwater
