#include "MPPXMLDOMFilter/Container/CompoundFileLibrary.h"
#include "MPPXMLDOMFilter/Model/MPPProject.h"
#include "MPPXMLDOMFilter/Walk/MPPProjectWriter.h"
#include "support/CompoundFile.h"
#include "support/LogCapture.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <random>

namespace brackwater::test {
namespace {

FileURL urlOf(const std::string& path) { return FileURL::fileURLWithPath(path, false); }

class ProjectWriter : public testing::Test {
protected:
    /// Writes to `output` with a template of these bytes.
    bool write(const Bytes& templateBytes, const std::string& output) {
        writeFile(_template, templateBytes);
        _failure = {};
        return MPPProjectWriter::writeProject(nullptr, urlOf(output), urlOf(_template), &_failure);
    }
    bool write(const CompoundTree& tree) { return write(bytesOfCompoundFile(tree), _output); }

    CompoundFileLibrary _library;
    TempFolder _folder;
    LogCapture _log;
    std::string _template = _folder.path("Template.mpp");
    std::string _output = _folder.path("Out.mpp");
    MPPWriteFailure _failure;
};

const CompoundTree kCopied = {
    stream("Large", patternBytes(100000)),
    compObj2007(),
    storage("Empty", {}),
    storage("Folder", {stream("Nothing", {}), storage("EmptyToo", {}),
                       storage("Store", {stream("A", patternBytes(4096)), stream("B", patternBytes(4095))})}),
};

TEST_F(ProjectWriter, UnknownEntriesAreCopiedUnchanged) {
    ASSERT_TRUE(write(kCopied)) << _failure.entryPath << ": " << _failure.reason;
    EXPECT_EQ(readCompoundFile(_output), readCompoundFile(_template));
    EXPECT_EQ(_log.lines(), (std::vector<std::string>{"opening a file at path " + _template, "writeProject started\n",
                                                      "opening a file at path " + _template,
                                                      "opening a file at path " + _output, "writeProject finished\n"}));
}

TEST_F(ProjectWriter, OutputAsTemplateGivesTheSameFile) {
    ASSERT_TRUE(write(kCopied));
    const Bytes first = readFile(_output);
    ASSERT_TRUE(write(first, _folder.path("Second.mpp")));
    EXPECT_EQ(readFile(_folder.path("Second.mpp")), first);
}

TEST_F(ProjectWriter, OtherFormatVersionsAreRejectedSilently) {
    const CompoundTree refused[] = {
        {compObj("Microsoft Project 11.0", "MSProject.MPP9")},
        {compObj("Microsoft Project 14.0", "MSProject.MPP14")},
        {compObj("Microsoft Project 4.0", "MSProject.MPP12")},
        {stream("Other", patternBytes(10))},
    };
    for (const auto& tree : refused) {
        LogCapture log;
        EXPECT_FALSE(write(tree));
        EXPECT_EQ(log.lines(), std::vector<std::string>{"opening a file at path " + _template});
        EXPECT_FALSE(std::filesystem::exists(_output));
        EXPECT_EQ(_failure.entryPath, _template);
    }
    EXPECT_EQ(_failure.reason, "the template cannot be read, or names no known format");
    write(refused[1]);
    EXPECT_EQ(
        _failure.reason,
        "the template is of Microsoft Project 2010 or later (format version 3), and one of 2007 (version 2) is needed");
    std::filesystem::remove(_template);
    EXPECT_FALSE(MPPProjectWriter::writeProject(nullptr, urlOf(_output), urlOf(_template), &_failure));
    EXPECT_EQ(_failure.reason, "the template cannot be found any more");
}

TEST_F(ProjectWriter, ProjectIsPreparedOnlyForATemplateThatIsWritten) {
    MPPProject project;
    for (const std::uint64_t id : {9U, 4U}) {
        project.tasks.push_back(std::make_shared<MPPTask>());
        project.tasks.back()->ID = id;
    }
    writeCompoundFile(_template, {compObj("Microsoft Project 14.0", "MSProject.MPP14")});
    EXPECT_FALSE(MPPProjectWriter::writeProject(&project, urlOf(_output), urlOf(_template)));
    EXPECT_EQ(project.tasks.front()->ID, 9U);
    writeCompoundFile(_template, kCopied);
    EXPECT_TRUE(MPPProjectWriter::writeProject(&project, urlOf(_output), urlOf(_template)));
    EXPECT_EQ(project.tasks.front()->ID, 1U);
    EXPECT_EQ(project.tasks.back()->ID, 2U);
}

TEST_F(ProjectWriter, FailedEntryLeavesAPartialFile) {
    EXPECT_FALSE(write({compObj2007(), stream("Early", patternBytes(5000)),
                        storage("Folder", {storage("Store", {stream("A", patternBytes(9)), storage("Deep", {})})}),
                        stream("LastEntry", {})}));
    EXPECT_EQ(_failure.entryPath, "Folder/Store");
    EXPECT_EQ(_failure.reason, "the storage 'Deep' lies too deep for the copier");
    const CompoundTree tree = readCompoundFile(_output);
    EXPECT_EQ(entryAt(tree, "Early")->bytes, patternBytes(5000));
    EXPECT_EQ(entryAt(tree, "Folder/Store/A")->bytes, patternBytes(9));
    EXPECT_EQ(*entryAt(tree, "Folder/Store/Deep"), stream("Deep", {}));
    EXPECT_FALSE(entryAt(tree, "LastEntry"));
    EXPECT_EQ(_log.lines().back(), "writeProject finished\n");
}

TEST_F(ProjectWriter, DamagedTemplatesAlwaysGiveAResult) {
    const Bytes whole = bytesOfCompoundFile(kCopied);
    std::mt19937 random(12);
    for (int round = 0; round < 150; ++round) {
        Bytes damaged = whole;
        if (round % 3 == 0)
            damaged.resize(random() % damaged.size());
        for (int flips = round % 5; flips > 0 && !damaged.empty(); --flips)
            damaged[damaged.size() - 1 - random() % std::min<std::size_t>(damaged.size(), 4096)] =
                static_cast<std::uint8_t>(random() % 256);
        std::filesystem::remove(_output);
        const bool written = write(damaged, _output);
        EXPECT_EQ(written, _failure.reason.empty());
    }
}

} // namespace
} // namespace brackwater::test
