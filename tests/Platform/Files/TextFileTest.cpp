#include "Platform/Files/TextFile.h"

#include "support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <thread>

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

TEST(TextLines, TextAfterTheLastNewlineIsALineEvenIfEmpty) {
    EXPECT_THAT(componentsSeparatedByNewlines(""), ElementsAre(""));
    EXPECT_THAT(componentsSeparatedByNewlines("\n"), ElementsAre("", ""));
}

TEST(TextLines, CharactersThatShareBytesWithANewlineStayWhole) {
    // A with ring, a with ogonek and an ellipsis contain bytes of newline characters; a tab is not a newline.
    EXPECT_THAT(componentsSeparatedByNewlines("\xC3\x85\xC4\x85\xE2\x80\xA6\t"),
                ElementsAre("\xC3\x85\xC4\x85\xE2\x80\xA6\t"));
    EXPECT_THAT(componentsSeparatedByNewlines("a\xE2\x80"), ElementsAre("a\xE2\x80"));
}

class TextFile : public testing::Test {
protected:
    std::string write(std::string_view bytes) const { return _folder.write("text.txt", bytes); }

    const test::TempFolder _folder;
};

TEST_F(TextFile, ReturnsItsTextWithoutTheByteOrderMark) {
    EXPECT_EQ(stringWithContentsOfFile(write("\xEF\xBB\xBFпуть\n")), "путь\n");
    EXPECT_EQ(stringWithContentsOfFile(write("")), "");
    const std::string zeros("\0a\0\0", 4);
    EXPECT_EQ(stringWithContentsOfFile(write(zeros)), zeros);
    const std::string large(200'000, 'x');
    EXPECT_EQ(stringWithContentsOfFile(write(large)), large);
}

TEST_F(TextFile, MayBeAPipeOrADeviceWithinATimeLimit) {
    const std::string pipe = _folder.path("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(stringWithContentsOfFile(pipe), std::nullopt) << "nobody writes";
    std::thread writer([&] {
        std::ofstream file(pipe);
        file << "a";
        file.flush();
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        file << "b";
    });
    EXPECT_EQ(stringWithContentsOfFile(pipe), "ab");
    writer.join();
    std::thread silentWriter([&] { std::ofstream file(pipe); });
    EXPECT_EQ(stringWithContentsOfFile(pipe), "") << "an empty text";
    silentWriter.join();
    EXPECT_EQ(bytesOfFile("/dev/zero", 1000, FileKinds::Any), std::nullopt);
    EXPECT_EQ(bytesOfFile("/dev/null", 1000, FileKinds::Any), "");
    EXPECT_EQ(bytesOfFile("/dev/null", 1000, FileKinds::Regular), std::nullopt);
    EXPECT_EQ(bytesOfFile(write("four"), 3, FileKinds::Any), std::nullopt);
    EXPECT_EQ(bytesOfFile(write("four"), 4, FileKinds::Regular), "four");
}

TEST_F(TextFile, ReturnsNothingIfTheTextCannotBeRead) {
    EXPECT_EQ(stringWithContentsOfFile(write("a\xFFz")), std::nullopt);
    EXPECT_EQ(stringWithContentsOfFile(write("cut \xE2\x80")), std::nullopt);
    EXPECT_EQ(stringWithContentsOfFile(write(std::string("a\0\xFF", 3))), std::nullopt);
    EXPECT_EQ(stringWithContentsOfFile(_folder.path()), std::nullopt);
    EXPECT_EQ(stringWithContentsOfFile(_folder.path("missing.txt")), std::nullopt);
}

} // namespace
} // namespace brackwater
