// A signal that ends the process leaves the whole file under the final name or nothing, and no temporary file.
#include "ToolTest.h"

#include "support/CompoundFile.h"

#include <gmock/gmock.h>

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

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
        for (const char* call : {"g_mkstemp_full", "fdopen", "fwrite", "fclose"}) {
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
    const ToolEnd end = exportTo(_folder.path("out/Plan.mpp"), signalAfter("renameat2", 0, SIGINT));
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

// A log that nobody reads fills its pipe, and the export waits for its reader.
TEST_F(Interrupt, EndsAnExportWhoseLogNobodyReads) {
    using Clock = std::chrono::steady_clock;
    writeTalkativePlan();
    for (const int signals : {1, 2}) {
        const std::string pipe = _folder.path("log");
        std::filesystem::remove(pipe);
        ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
        const int reader = open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
        // The clock that ends the wait for the reader may be held back by whoever starts the tool.
        sigset_t alarms, maskBefore;
        sigemptyset(&alarms);
        sigaddset(&alarms, SIGALRM);
        sigprocmask(SIG_BLOCK, &alarms, &maskBefore);
        const pid_t tool = startExport(_folder.path("out/Plan.mpp"));
        sigprocmask(SIG_SETMASK, &maskBefore, nullptr);
        int waiting = 0;
        for (int before = -1; waiting == 0 || waiting != before;) { // until it fills no further
            before = waiting;
            std::this_thread::sleep_for(std::chrono::milliseconds(300));
            ioctl(reader, FIONREAD, &waiting);
        }
        const auto start = Clock::now();
        kill(tool, SIGTERM);
        if (signals == 2) {
            std::this_thread::sleep_for(std::chrono::milliseconds(100));
            kill(tool, SIGINT);
        }
        const ToolEnd end = waitForTool(tool);
        const auto waited = Clock::now() - start;
        close(reader);
        EXPECT_EQ(end.signalNumber, signals == 1 ? SIGTERM : SIGINT);
        EXPECT_LT(waited, std::chrono::milliseconds(signals == 1 ? 5000 : 900));
        EXPECT_THAT(namesIn(_out), IsEmpty());
    }
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
