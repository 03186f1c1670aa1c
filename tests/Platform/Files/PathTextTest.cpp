#include "Platform/Files/PathText.h"

#include "Platform/Files/FileURL.h"
#include "support/Environment.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace brackwater {
namespace {

using test::ScopedEnvironment;

TEST(PathText, ExtensionFollowsTheLastPointOfTheLastComponent) {
    EXPECT_EQ(pathExtension("/a/Plan.zelb"), "zelb");
    EXPECT_EQ(pathExtension("/a/Plan.zelb//"), "zelb");
    EXPECT_EQ(pathExtension("a.b.MPP"), "MPP");
    EXPECT_EQ(pathExtension("/.a.mpp"), "mpp");
    for (const char* path : {"", "/", "a", "a.", ".profile", "/x/.profile", "a.b/c", "..", ".", "/"})
        EXPECT_EQ(pathExtension(path), "") << path;
}

TEST(PathText, LastComponentExcludesTrailingSlashes) {
    EXPECT_EQ(lastPathComponent("/a/b"), "b");
    EXPECT_EQ(lastPathComponent("/a/b///"), "b");
    EXPECT_EQ(lastPathComponent("b"), "b");
    EXPECT_EQ(lastPathComponent("/"), "/");
    EXPECT_EQ(lastPathComponent("///"), "/");
    EXPECT_EQ(lastPathComponent(""), "");
}

TEST(PathText, DeletingTheExtensionKeepsTheRest) {
    EXPECT_EQ(stringByDeletingPathExtension("/var/scratch.tiff"), "/var/scratch");
    EXPECT_EQ(stringByDeletingPathExtension("/var/"), "/var");
    EXPECT_EQ(stringByDeletingPathExtension("scratch.bundle/"), "scratch");
    EXPECT_EQ(stringByDeletingPathExtension("scratch..tiff"), "scratch.");
    EXPECT_EQ(stringByDeletingPathExtension(".tiff"), ".tiff");
    EXPECT_EQ(stringByDeletingPathExtension("/a.b/c"), "/a.b/c");
    EXPECT_EQ(stringByDeletingPathExtension("/"), "/");
}

TEST(PathText, DeletingTheLastComponentStopsAtTheRoot) {
    EXPECT_EQ(stringByDeletingLastPathComponent("/var/scratch.tiff"), "/var");
    EXPECT_EQ(stringByDeletingLastPathComponent("/var/lock/"), "/var");
    EXPECT_EQ(stringByDeletingLastPathComponent("/var/"), "/");
    EXPECT_EQ(stringByDeletingLastPathComponent("/"), "/");
    EXPECT_EQ(stringByDeletingLastPathComponent("a//b"), "a");
    EXPECT_EQ(stringByDeletingLastPathComponent("a"), "");
    EXPECT_EQ(stringByDeletingLastPathComponent(""), "");
}

TEST(PathText, AppendingJoinsWithOneSlash) {
    EXPECT_EQ(stringByAppendingPathComponent("/var", "a.mpp"), "/var/a.mpp");
    EXPECT_EQ(stringByAppendingPathComponent("/var//", "/a.mpp/"), "/var/a.mpp");
    EXPECT_EQ(stringByAppendingPathComponent("/", "a"), "/a");
    EXPECT_EQ(stringByAppendingPathComponent("", "a"), "a");
    EXPECT_EQ(stringByAppendingPathComponent("/var", ""), "/var");
    EXPECT_EQ(stringByAppendingPathExtension("/var/Plan", "mpp"), "/var/Plan.mpp");
    EXPECT_EQ(stringByAppendingPathExtension("/var/Plan.zelb/", "mpp"), "/var/Plan.zelb.mpp");
    EXPECT_EQ(stringByAppendingPathExtension("Plan.", "mpp"), "Plan..mpp");
    EXPECT_EQ(stringByAppendingPathExtension("/", "mpp"), "/");
}

TEST(PathText, StandardizingRemovesRedundantParts) {
    EXPECT_EQ(stringByStandardizingPath("/a/./b//c/"), "/a/b/c");
    EXPECT_EQ(stringByStandardizingPath("./Plan.zelb/"), "Plan.zelb");
    EXPECT_EQ(stringByStandardizingPath("/a/b/../c"), "/a/c");
    EXPECT_EQ(stringByStandardizingPath("/../../a"), "/a");
    EXPECT_EQ(stringByStandardizingPath("/a/.."), "/");
    EXPECT_EQ(stringByStandardizingPath("a/b/../../c/./d"), "c/d");
    EXPECT_EQ(stringByStandardizingPath(".././../a/../b"), "../../b");
    EXPECT_EQ(stringByStandardizingPath("a/../../b"), "../b");
    EXPECT_EQ(stringByStandardizingPath("a/.."), ".");
    EXPECT_EQ(stringByStandardizingPath("."), ".");
    EXPECT_EQ(stringByStandardizingPath("./"), ".");
    EXPECT_EQ(stringByStandardizingPath("//"), "/");
    EXPECT_EQ(stringByStandardizingPath(""), "");
    EXPECT_EQ(stringByStandardizingPath("/a/...b/.c"), "/a/...b/.c");
}

TEST(PathText, StandardizingExpandsOnlyALeadingTilde) {
    const ScopedEnvironment home("HOME", "/home/somebody/");
    EXPECT_EQ(stringByStandardizingPath("~"), "/home/somebody");
    EXPECT_EQ(stringByStandardizingPath("~/Plan.zelb"), "/home/somebody/Plan.zelb");
    EXPECT_EQ(stringByStandardizingPath("~root/x").front(), '/');
    EXPECT_EQ(stringByStandardizingPath("~no such user/x"), "~no such user/x");
    EXPECT_EQ(stringByStandardizingPath("/a/~/b"), "/a/~/b");
}

TEST(PathText, LowerCaseFoldsLettersOfAllScripts) {
    EXPECT_EQ(lowercaseString("MPP"), "mpp");
    EXPECT_EQ(lowercaseString("\u00C4\u0416\u03A9z"), "\u00E4\u0436\u03C9z");
    EXPECT_EQ(lowercaseString(""), "");
}

TEST(PathText, KindsFollowLinks) {
    const test::TempFolder temporary;
    const std::string& folder = temporary.path();
    temporary.write("file", "x");
    std::filesystem::create_symlink(folder, folder + "/link");
    std::filesystem::create_symlink("nowhere", folder + "/dangling");
    EXPECT_EQ(kindOfPath(folder), PathKind::Directory);
    EXPECT_EQ(kindOfPath(folder + "/link"), PathKind::Directory);
    EXPECT_EQ(kindOfPath(folder + "/file"), PathKind::File);
    EXPECT_EQ(kindOfPath("/dev/null"), PathKind::File);
    EXPECT_EQ(kindOfPath(folder + "/dangling"), PathKind::Missing);
    EXPECT_EQ(kindOfPath(folder + "/file/x"), PathKind::Missing);
    EXPECT_EQ(kindOfPath(folder + std::string("/file\0x", 7)), PathKind::Missing);
    EXPECT_EQ(kindOfPath(""), PathKind::Missing);
}

TEST(FileURL, TextIsPercentEncodedAndAFolderEndsWithASlash) {
    const FileURL folder = FileURL::fileURLWithPath("/Users/a b/Plan.zelb", true);
    EXPECT_TRUE(folder.isFileURL());
    EXPECT_EQ(folder.absoluteString(), "file:///Users/a%20b/Plan.zelb/");
    EXPECT_EQ(folder.path(), "/Users/a b/Plan.zelb");
    EXPECT_EQ(FileURL::fileURLWithPath("/t/", true).absoluteString(), "file:///t/");
    EXPECT_EQ(FileURL::fileURLWithPath("/t/", false).absoluteString(), "file:///t");
    EXPECT_EQ(FileURL::fileURLWithPath("/", true).absoluteString(), "file:///");
    EXPECT_EQ(FileURL::fileURLWithPath("/\u00E9#?%;[]\"", false).absoluteString(),
              "file:///%C3%A9%23%3F%25%3B%5B%5D%22");
    EXPECT_EQ(FileURL::fileURLWithPath("/a-b_c.d~e!$&'()*+,=:@", false).absoluteString(),
              "file:///a-b_c.d~e!$&'()*+,=:@");
}

TEST(FileURL, RelativePathsAreRelativeToTheWorkingFolder) {
    const std::string folder = std::filesystem::current_path().string();
    EXPECT_EQ(FileURL::fileURLWithPath("a/b", false).path(), folder + "/a/b");
    EXPECT_EQ(FileURL::fileURLWithPath("./a/../b/", false).path(), folder + "/b");
}

TEST(FileURL, EntriesAreAppendedToThePath) {
    const FileURL folder = FileURL::fileURLWithPath("/a b", true);
    EXPECT_EQ(folder.urlByAppendingPathComponent("__TOC.xml").absoluteString(), "file:///a%20b/__TOC.xml");
    EXPECT_EQ(folder.urlByAppendingPathComponent("c", true).absoluteString(), "file:///a%20b/c/");
    EXPECT_EQ(FileURL::urlWithString("http://x/y").urlByAppendingPathComponent("z z").absoluteString(),
              "http://x/y/z%20z");
}

TEST(FileURL, OtherSchemesAreNotFileURLs) {
    EXPECT_FALSE(FileURL::urlWithString("http://example.org/Plan.zelb").isFileURL());
    EXPECT_FALSE(FileURL::urlWithString("/Plan.zelb").isFileURL());
    EXPECT_FALSE(FileURL::urlWithString("").isFileURL());
    const FileURL file = FileURL::urlWithString("file:///a%20b/%e9%zz%4/");
    EXPECT_TRUE(file.isFileURL());
    EXPECT_EQ(file.path(), "/a b/\xE9%zz%4");
    EXPECT_EQ(file.absoluteString(), "file:///a%20b/%e9%zz%4/");
}

} // namespace
} // namespace brackwater
