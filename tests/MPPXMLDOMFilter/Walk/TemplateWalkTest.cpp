#include "MPPXMLDOMFilter/Walk/TemplateWalk.h"

#include "support/CompoundFile.h"
#include "support/MemoryWriter.h"

#include <gtest/gtest.h>

namespace brackwater::test {
namespace {

/// A walk from an in-memory template to an in-memory sink.
struct Walked {
    explicit Walked(const CompoundTree& tree, std::optional<std::size_t> failingCall = {}) {
        output->failingCall = failingCall;
        MemoryWriter root(output);
        written = TemplateWalk(nullptr, failure).writeEntries(*readerOfCompoundFile(tree), root);
    }

    std::shared_ptr<MemoryOutput> output = std::make_shared<MemoryOutput>();
    MPPWriteFailure failure;
    bool written = false;
};

const CompoundTree kUnknownEntries = {
    stream("Other", patternBytes(6000)),
    stream("Props", patternBytes(50)), // known only in a project folder
    storage("Folder", {stream("Inner", patternBytes(10)),
                       storage("Store", {stream("One", patternBytes(20)), stream("Empty", {})})}),
    storage("   212", {stream("Props", patternBytes(60)), storage("TBkndCal", {stream("X", patternBytes(70))})}),
    storage("Nothing", {}),
};

TEST(TemplateWalk, CopiesUnknownEntriesInTheTemplatesOrder) {
    const Walked walk(kUnknownEntries);
    EXPECT_TRUE(walk.written);
    EXPECT_EQ(walk.output->streams, (std::map<std::string, Bytes>{{"Other", patternBytes(6000)},
                                                                  {"Props", patternBytes(50)},
                                                                  {"Folder/Inner", patternBytes(10)},
                                                                  {"Folder/Store/One", patternBytes(20)},
                                                                  {"Folder/Store/Empty", {}},
                                                                  {"   212/Props", patternBytes(60)},
                                                                  {"   212/TBkndCal/X", patternBytes(70)}}));
    EXPECT_EQ(walk.output->created,
              (std::vector<std::string>{"Other", "Props", "   212", "   212/Props", "   212/TBkndCal",
                                        "   212/TBkndCal/X", "Folder", "Folder/Inner", "Folder/Store",
                                        "Folder/Store/One", "Folder/Store/Empty", "Nothing"}));
    EXPECT_EQ(walk.output->mostOpenStreams, 1);
    EXPECT_EQ(walk.output->openStreams, 0);
}

TEST(TemplateWalk, RootStoragesAreFoldersWhateverTheirName) {
    const Walked walk({storage("TBkndTask", {stream("Data", patternBytes(10))}),
                       storage("CEdl", {storage("Store", {stream("Data", patternBytes(20))})})});
    EXPECT_TRUE(walk.written);
    EXPECT_EQ(walk.output->streams.at("TBkndTask/Data"), patternBytes(10));
    EXPECT_EQ(walk.output->streams.at("CEdl/Store/Data"), patternBytes(20));
}

TEST(TemplateWalk, StreamWriterWithoutAProjectFails) {
    const Walked walk({storage("   112", {storage("TBkndTask", {stream("Props", {})})})});
    EXPECT_FALSE(walk.written);
    EXPECT_EQ(walk.failure.entryPath, "   112/TBkndTask");
    EXPECT_NE(walk.failure.reason, "");
    EXPECT_EQ(walk.output->created, (std::vector<std::string>{"   112", "   112/TBkndTask"}));
}

TEST(TemplateWalk, ReportsPathAndReasonWhicheverSinkCallFails) {
    const std::size_t calls = Walked(kUnknownEntries).output->calls;
    ASSERT_GT(calls, 25U);
    for (std::size_t failing = 0; failing < calls; ++failing) {
        const Walked walk(kUnknownEntries, failing);
        EXPECT_FALSE(walk.written) << failing;
        EXPECT_EQ(walk.output->calls, failing + 1) << "nothing is begun after a failure";
        EXPECT_NE(walk.failure.entryPath, "") << failing;
        EXPECT_NE(walk.failure.reason, "") << failing;
        EXPECT_EQ(walk.output->openStreams, 0) << failing;
    }
}

} // namespace
} // namespace brackwater::test
