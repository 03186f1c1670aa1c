// A signal that ends the process leaves the whole file under the final name or nothing, and no temporary file.
#include "ToolTest.h"

#include "support/CompoundFile.h"

#include <gmock/gmock.h>

#include <chrono>
#include <csignal>
#include <thread>

namespace brackwater::test {
namespace {

using testing::AnyOf;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class Interrupt : public ToolTest {
protected:
    static std::string signalAfter(const char* call, int count, int signalNumber) {
        return std::string(call) + ":" + std::to_string(count) + ":-" + std::to_string(signalNumber);
    }

    std::size_t entriesOfTheOutput() const { return readCompoundFile(_folder.path("out/Plan.mpp")).size(); }
};

TEST_F(Interrupt, EndsTheProcessByTheSignalAndLeavesNothing) {
    for (const int signalNumber : {SIGINT, SIGTERM, SIGHUP, SIGQUIT}) {
        for (const char* call : {"g_mkstemp", "fdopen", "fwrite", "fclose"}) {
            const ToolEnd end = exportTo(_folder.path("out/Plan.mpp"), signalAfter(call, 0, signalNumber));
            EXPECT_TRUE(faultCameToPass());
            EXPECT_EQ(end.signalNumber, signalNumber) << call;
            EXPECT_THAT(namesIn(_out), IsEmpty()) << call << " " << signalNumber;
            EXPECT_TRUE(logHas("writeProject started")) << "what was logged is written out: " << log();
            EXPECT_FALSE(logHas("### Exporter")) << log();
        }
    }
}

TEST_F(Interrupt, AtEachWriteLeavesNothing) {
    for (int count = 0;; count += 3) {
        const ToolEnd end = exportTo(_folder.path("out/Plan.mpp"), signalAfter("fwrite", count, SIGTERM));
        if (!faultCameToPass())
            break;
        ASSERT_EQ(end.signalNumber, SIGTERM) << count;
        ASSERT_THAT(namesIn(_out), IsEmpty()) << count;
    }
}

TEST_F(Interrupt, AfterTheMoveLeavesTheWholeFile) {
    exportTo(_folder.path("out/Plan.mpp"));
    const std::size_t entries = entriesOfTheOutput();
    setOverwriting();
    const ToolEnd end = exportTo(_folder.path("out/Plan.mpp"), signalAfter("rename", 0, SIGINT));
    EXPECT_EQ(end.signalNumber, SIGINT);
    EXPECT_THAT(namesIn(_out), UnorderedElementsAre("Plan.mpp"));
    EXPECT_EQ(entriesOfTheOutput(), entries);
}

TEST_F(Interrupt, KeepsAnEarlierFile) {
    _folder.write("out/Plan.mpp", "earlier");
    exportTo(_folder.path("out/Plan.mpp"), signalAfter("fclose", 0, SIGINT));
    EXPECT_THAT(namesIn(_out), UnorderedElementsAre("Plan.mpp"));
    EXPECT_EQ(_folder.read("out/Plan.mpp"), "earlier");
}

TEST_F(Interrupt, AtAnyMomentLeavesAllOrNothing) {
    exportTo(_folder.path("out/Plan.mpp"));
    const std::size_t entries = entriesOfTheOutput();
    setOverwriting();
    for (int round = 0; round < 25; ++round) {
        const pid_t tool = startExport(_folder.path("out/Plan.mpp"));
        std::this_thread::sleep_for(std::chrono::milliseconds(2 * round));
        kill(tool, round % 2 == 0 ? SIGINT : SIGTERM);
        waitForTool(tool);
        ASSERT_THAT(namesIn(_out), AnyOf(IsEmpty(), UnorderedElementsAre("Plan.mpp"))) << round;
        if (!namesIn(_out).empty()) {
            ASSERT_EQ(entriesOfTheOutput(), entries) << round;
        }
    }
}

} // namespace
} // namespace brackwater::test
