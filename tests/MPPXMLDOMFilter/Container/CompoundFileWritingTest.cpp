#include "MPPXMLDOMFilter/Container/CompoundFileLibrary.h"
#include "MPPXMLDOMFilter/Container/MPPFormatWriter.h"
#include "support/CompoundFile.h"
#include "support/ExpectException.h"
#include "support/LogCapture.h"
#include "support/SmallDisk.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>

namespace brackwater::test {
namespace {

/// Names in a folder, each followed by a blank.
std::string namesIn(const std::string& folder) {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        names.insert(entry.path().filename());
    std::string text;
    for (const auto& name : names)
        text += name + " ";
    return text;
}

class Writing : public testing::Test {
protected:
    static FileURL urlOf(const std::string& path) { return FileURL::fileURLWithPath(path, false); }

    CompoundFileLibrary _library;
    TempFolder _folder;
    LogCapture _log;
    std::string _path = _folder.path("Out.mpp");
};

TEST_F(Writing, TreeIsReadBackAsWritten) {
    MPPFormatWriter root(urlOf(_path));
    ASSERT_TRUE(root.open());
    EXPECT_TRUE(root.open()); // already open
    EXPECT_EQ(_log.lines(), std::vector<std::string>{"opening a file at path " + _path});
    {
        const auto folder = root.createChildWithName("   112", true);
        ASSERT_TRUE(folder);
        EXPECT_EQ(folder->getName(), "   112");
        const auto data = folder->createChildWithName("Data", false);
        ASSERT_TRUE(data);
        EXPECT_TRUE(data->writeBytes(patternBytes(3000)));
        EXPECT_TRUE(data->writeBytes({}));
        EXPECT_TRUE(data->writeBytes(patternBytes(3000, 2)));
        EXPECT_TRUE(data->close());
        EXPECT_TRUE(data->close());
        EXPECT_FALSE(data->writeBytes(patternBytes(1)));
        EXPECT_TRUE(folder->createChildWithName("\x05"
                                                "Empty",
                                                false));
    }
    EXPECT_TRUE(root.createChildWithName("Nothing", true));
    EXPECT_FALSE(std::filesystem::exists(_path)) << "the file comes with the root's close";
    EXPECT_TRUE(root.close());
    EXPECT_EQ(root.failureText(), "");
    EXPECT_EQ(namesIn(_folder.path()), "Out.mpp ");

    Bytes both = patternBytes(3000);
    const Bytes second = patternBytes(3000, 2);
    both.insert(both.end(), second.begin(), second.end());
    const CompoundTree tree = readCompoundFile(_path);
    ASSERT_TRUE(entryAt(tree, "   112/Data"));
    EXPECT_EQ(entryAt(tree, "   112/Data")->bytes, both);
    EXPECT_EQ(*entryAt(tree, "   112/\x05"
                             "Empty"),
              stream("\x05"
                     "Empty",
                     {}));
    EXPECT_EQ(*entryAt(tree, "Nothing"), storage("Nothing", {}));
}

TEST_F(Writing, SecondOpenStreamIsRejectedBeforeItHarmsTheFirst) {
    MPPFormatWriter root(urlOf(_path));
    ASSERT_TRUE(root.open());
    auto first = root.createChildWithName("First", false);
    expectAssertion("'Second' cannot be begun while a stream of the output is open",
                    [&] { (void)root.createChildWithName("Second", false); });
    first.reset();
    EXPECT_TRUE(root.createChildWithName("Second", false));
}

TEST_F(Writing, ClosedOrUnopenedNodesAndStreamsCreateNoChildren) {
    MPPFormatWriter root(urlOf(_path));
    EXPECT_FALSE(root.createChildWithName("A", true));
    EXPECT_FALSE(root.writeBytes(patternBytes(1)));
    ASSERT_TRUE(root.open());
    {
        const auto data = root.createChildWithName("Data", false);
        EXPECT_FALSE(data->createChildWithName("Inner", false));
        EXPECT_FALSE(data->createChildWithName("Inner", true));
    }
    EXPECT_TRUE(root.close());
    EXPECT_FALSE(root.createChildWithName("A", true));
    EXPECT_FALSE(root.open());
}

TEST_F(Writing, ExistingFileIsNeverReplaced) {
    _folder.write("Out.mpp", "before");
    NumberedPath destination(_path);
    MPPFormatWriter root(destination);
    ASSERT_TRUE(root.open());
    ASSERT_TRUE(root.createChildWithName("A", false)->writeBytes(patternBytes(9000)));
    ASSERT_TRUE(root.close());
    EXPECT_EQ(_folder.read("Out.mpp"), "before");
    EXPECT_EQ(destination.path(), _folder.path("Out-1.mpp"));
    EXPECT_EQ(listing(readCompoundFile(destination.path())), "A\n");
    EXPECT_EQ(namesIn(_folder.path()), "Out-1.mpp Out.mpp ");
}

TEST_F(Writing, DestinationThatCannotBeCreatedIsLogged) {
    for (const std::string& path : {_folder.path("missing/Out.mpp"), std::string("/proc/Out.mpp")}) {
        LogCapture log;
        MPPFormatWriter root(urlOf(path));
        EXPECT_FALSE(root.open()) << path;
        ASSERT_EQ(log.lines().size(), 2U) << path;
        EXPECT_EQ(log.lines()[0], "opening a file at path " + path);
        EXPECT_EQ(log.lines()[1], "'" + path + "' error: " + root.failureText());
        EXPECT_NE(root.failureText(), "");
    }
    EXPECT_EQ(namesIn(_folder.path()), "");
}

TEST_F(Writing, FullDiskKeepsTheExistingFile) {
    const SmallDisk disk(200 << 10);
    writeFile(disk.path("Out.mpp"), patternBytes(1000));
    MPPFormatWriter root(urlOf(disk.path("Out.mpp")));
    ASSERT_TRUE(root.open());
    static_cast<void>(root.createChildWithName("Data", false)->writeBytes(patternBytes(400 << 10)));
    EXPECT_FALSE(root.close());
    EXPECT_FALSE(root.close()) << "the answer stays";
    EXPECT_NE(root.failureText(), "");
    EXPECT_EQ(readFile(disk.path("Out.mpp")), patternBytes(1000));
    EXPECT_EQ(namesIn(disk.path("")), "Out.mpp ");
}

} // namespace
} // namespace brackwater::test
