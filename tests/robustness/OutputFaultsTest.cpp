// Whatever becomes of the output, the log says so, an earlier file stays, and no temporary file is left.
#include "ToolTest.h"

#include "support/CompoundFile.h"
#include "support/ScenarioBuilder.h"
#include "support/SmallDisk.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <filesystem>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

namespace brackwater::test {
namespace {

using testing::UnorderedElementsAre;

struct FailingCall {
    const char* call;
    int error;
};

void PrintTo(const FailingCall& failing, std::ostream* out) { *out << failing.call; }

class FailingCalls : public ToolTest, public testing::WithParamInterface<FailingCall> {};

TEST_P(FailingCalls, EachInTurnFailsTheExportAndLeavesNothingNew) {
    const auto& [call, error] = GetParam();
    _folder.write("out/Plan.mpp", "earlier");
    int failures = 0;
    while (true) {
        const std::string fault = std::string(call) + ":" + std::to_string(failures) + ":" + std::to_string(error);
        const ToolEnd end = exportTo(_folder.path("out/Plan.mpp"), fault);
        ASSERT_EQ(end.exitStatus, 0) << fault << "\n" << log();
        if (!faultCameToPass())
            break;
        ++failures;
        ASSERT_NO_FATAL_FAILURE(expectFailedExport()) << fault;
        ASSERT_THAT(namesIn(_out), UnorderedElementsAre("Plan.mpp")) << fault;
        ASSERT_EQ(_folder.read("out/Plan.mpp"), "earlier") << fault;
    }
    EXPECT_GE(failures, 1);
    EXPECT_TRUE(logHas("### Exporter SUCCEEDED.")) << log();
    EXPECT_THAT(namesIn(_out), UnorderedElementsAre("Plan.mpp", "Plan-1.mpp"));
}

INSTANTIATE_TEST_SUITE_P(Output, FailingCalls,
                         testing::Values(FailingCall{"g_mkstemp_full", EACCES}, FailingCall{"fdopen", ENOMEM},
                                         FailingCall{"fwrite", ENOSPC}, FailingCall{"fseeko", EIO},
                                         FailingCall{"fclose", EIO}, FailingCall{"renameat2", EACCES}),
                         testing::PrintToStringParamName());

class Output : public ToolTest {};

TEST_F(Output, FullFileSystemOfAnySizeFailsUntilTheFileFits) {
    ASSERT_EQ(exportTo(_folder.path("out/Plan.mpp")).exitStatus, 0);
    const std::size_t needed = std::filesystem::file_size(_folder.path("out/Plan.mpp"));
    // The system rounds a size up to whole pages.
    constexpr std::size_t kPage = 4096;
    for (std::size_t size = kPage; size + kPage <= needed; size += std::max<std::size_t>(kPage, needed / 16)) {
        const SmallDisk disk(size);
        exportTo(disk.path("Plan.mpp"));
        expectFailedExport();
        EXPECT_TRUE(namesIn(disk.path("")).empty()) << size;
    }
    const SmallDisk disk(needed + 8192);
    exportTo(disk.path("Plan.mpp"));
    EXPECT_TRUE(logHas("### Exporter SUCCEEDED.")) << log();
    EXPECT_EQ(readCompoundFile(disk.path("Plan.mpp")).size(), readCompoundFile(_folder.path("out/Plan.mpp")).size());
}

TEST_F(Output, LimitOnTheSizeOfFilesFailsTheExportInsteadOfEndingTheProcess) {
    _mostBytesOfAFile = 20'000; // enough for the log
    const ToolEnd end = exportTo(_folder.path("out/Plan.mpp"));
    EXPECT_EQ(end.exitStatus, 0);
    expectFailedExport();
    EXPECT_TRUE(namesIn(_out).empty());
}

// The sanitizers take all addresses for themselves.
#ifndef __SANITIZE_ADDRESS__
TEST_F(Output, MemoryThatRunsOutFailsTheExport) {
    constexpr int kTasks = 40'000;
    constexpr std::size_t kMegabyte = 1'000'000;
    std::string ids;
    for (int number = 1; number <= kTasks; ++number)
        ids += (number == 1 ? "t" : ",t") + std::to_string(number);
    auto scenario = ScenarioBuilder::withRoots("", ids);
    for (int number = 1; number <= kTasks; ++number)
        scenario.task("t" + std::to_string(number));
    _folder.write("Plan.zelb/plan.xml", scenario.text());

    int failures = 0;
    for (_mostMemory = 120 * kMegabyte; _mostMemory < 1000 * kMegabyte; _mostMemory += 20 * kMegabyte) {
        ASSERT_EQ(exportTo(_folder.path("out/Plan.mpp")).exitStatus, 0) << _mostMemory << "\n" << log();
        if (logHas("### Exporter SUCCEEDED."))
            break;
        ++failures;
        EXPECT_TRUE(logHas("### Exporter FAILED.")) << _mostMemory;
        EXPECT_TRUE(namesIn(_out).empty()) << _mostMemory;
    }
    EXPECT_GE(failures, 2);
    EXPECT_THAT(namesIn(_out), UnorderedElementsAre("Plan.mpp"));
}
#endif

// Where permission bits bind nobody, a file system that is mounted for reading stands in for them.
class ReadOnlyFolder {
public:
    explicit ReadOnlyFolder(std::string path) : _path(std::move(path)) {
        if (geteuid() != 0)
            chmod(_path.c_str(), 0500);
        else
            _mounted = mount("tmpfs", _path.c_str(), "tmpfs", MS_RDONLY, nullptr) == 0;
    }
    ~ReadOnlyFolder() {
        if (_mounted)
            umount(_path.c_str());
        chmod(_path.c_str(), 0700);
    }
    ReadOnlyFolder(const ReadOnlyFolder&) = delete;
    ReadOnlyFolder& operator=(const ReadOnlyFolder&) = delete;
    [[nodiscard]] bool isReadOnly() const { return access(_path.c_str(), W_OK) != 0; }

private:
    std::string _path;
    bool _mounted = false;
};

TEST_F(Output, FileSystemThatCannotSpareTheDestinationDoesSoAllTheSame) {
    const std::string noMove = "renameat2:0:22";
    for (const std::string& lacking : {noMove, noMove + ",link:0:1"}) {
        exportTo(_folder.path("out/Plan.mpp"), lacking);
        EXPECT_TRUE(logHas("### Exporter SUCCEEDED.")) << lacking << log();
        EXPECT_THAT(namesIn(_out), UnorderedElementsAre("Plan.mpp")) << lacking;
        EXPECT_FALSE(readCompoundFile(_folder.path("out/Plan.mpp")).empty()) << lacking;
        std::filesystem::remove(_folder.path("out/Plan.mpp"));
        // A link that leads nowhere is no file, but it stands in the way.
        std::filesystem::create_symlink("nowhere", _folder.path("out/Plan.mpp"));
        exportTo(_folder.path("out/Plan.mpp"), lacking);
        EXPECT_THAT(namesIn(_out), UnorderedElementsAre("Plan.mpp", "Plan-1.mpp")) << lacking;
        EXPECT_TRUE(logHas("WARNING: '" + _folder.path("out/Plan.mpp") +
                           "' has been taken meanwhile. The export stands at '" + _folder.path("out/Plan-1.mpp") +
                           "'."))
            << log();
        std::filesystem::remove(_folder.path("out/Plan.mpp"));
        std::filesystem::remove(_folder.path("out/Plan-1.mpp"));
    }
}

TEST_F(Output, ReadOnlyOrMissingFolderFailsTheExport) {
    {
        const ReadOnlyFolder readOnly(_out);
        ASSERT_TRUE(readOnly.isReadOnly());
        exportTo(_folder.path("out/Plan.mpp"));
        expectFailedExport();
        EXPECT_TRUE(logHas("/out/Plan.mpp' error: ")) << log();
    }
    exportTo(_folder.path("missing/Plan.mpp"));
    expectFailedExport();
    EXPECT_TRUE(logHas("/missing/Plan.mpp' error: ")) << log();
    EXPECT_FALSE(_folder.has("missing"));
    EXPECT_TRUE(namesIn(_out).empty());
}

TEST_F(Output, OverwritingRemovesTheEarlierFileBeforeTheExportIsTried) {
    setOverwriting();
    _folder.write("out/Plan.mpp", "earlier");
    exportTo(_folder.path("out/Plan.mpp"), "fclose:0:5");
    expectFailedExport();
    EXPECT_TRUE(namesIn(_out).empty());
}

} // namespace
} // namespace brackwater::test
