#include "Platform/Files/Preferences.h"

#include "support/Environment.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sys/stat.h>

namespace brackwater {
namespace {

using test::ScopedEnvironment;

constexpr const char* kDomain = "lanthorn.Tarnwick2.MSPExportMPP";

class PreferencesTest : public testing::Test {
protected:
    void write(const std::string& text) { _folder.write(std::string(kDomain) + ".conf", text); }
    static bool read(const char* key) { return Preferences(kDomain).boolForKey(key); }

    test::TempFolder _folder;
    ScopedEnvironment _environment{"XDG_CONFIG_HOME", _folder.path().c_str()};
};

TEST_F(PreferencesTest, ValuesComeFromTheGroupOfTheDomainsFile) {
    write("# comment\n[Preferences]\nIncludeInputExtension = YES\nOverwriteFilterTarget=0\nOdd=007\n[Other]\nX=1\n");
    EXPECT_TRUE(read("IncludeInputExtension"));
    EXPECT_TRUE(read("Odd"));
    EXPECT_FALSE(read("OverwriteFilterTarget"));
    EXPECT_FALSE(read("X"));
    EXPECT_FALSE(read("Missing"));
    EXPECT_FALSE(read(""));
}

TEST_F(PreferencesTest, UnreadableValuesAreFalse) {
    EXPECT_FALSE(read("A")) << "no file";
    write("A=1\n");
    EXPECT_FALSE(read("A")) << "no group";
    write("[Preferences]\nno key file\nA=1\n");
    EXPECT_FALSE(read("A")) << "not a key file";
    write("[Preferences]\nA=1\n" + std::string(std::size_t{1} << 20, '#'));
    EXPECT_FALSE(read("A")) << "too large";
    const std::string path = Preferences::pathOfDomain(kDomain);
    std::filesystem::remove(path);
    std::filesystem::create_directory(path);
    EXPECT_FALSE(read("A")) << "a folder";
    std::filesystem::remove(path);
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    EXPECT_FALSE(read("A")) << "a pipe that nobody writes to";
}

TEST_F(PreferencesTest, FolderIsTheConfiguredOneOrInTheHomeFolder) {
    EXPECT_EQ(Preferences::pathOfDomain("d"), _folder.path("d.conf"));
    const ScopedEnvironment home("HOME", "/home/somebody");
    const ScopedEnvironment relative("XDG_CONFIG_HOME", "not/absolute");
    EXPECT_EQ(Preferences::pathOfDomain("d"), "/home/somebody/.config/d.conf");
    const ScopedEnvironment none("XDG_CONFIG_HOME", nullptr);
    EXPECT_EQ(Preferences::pathOfDomain("d"), "/home/somebody/.config/d.conf");
}

} // namespace
} // namespace brackwater
