// What memory is asked for: each request fails in turn.
#include "MemoryRequests.h"

#include "MPPXMLDOMFilter/Export/MSPEMPPExporter.h"
#include "Platform/Log/Log.h"
#include "support/CompoundFile.h"
#include "support/PlanBundle.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <limits>
#include <optional>

namespace brackwater::test {
namespace {

namespace fs = std::filesystem;

/// Keeps no more of the log than whether it told a failure.
class FailureInLog : public LogSink {
public:
    void receive(std::string_view text) override {
        told = told || text.starts_with("EXCEPTION: ") || text.starts_with("WARNING: Writing stopped at '");
    }
    bool told = false;
};

class Allocations : public testing::Test {
protected:
    /// Exports the bundle anew. Of the requests for memory the one of this number, counted from 0, fails.
    bool exportBundle(std::size_t failing = std::numeric_limits<std::size_t>::max()) {
        fs::remove_all(_folder.path("out"));
        _folder.makeFolder("out");
        _failureTold = false;
        FailureInLog log;
        memoryRequests = {0, failing};
        const bool done = MSPEMPPExporter({}).exportZelbBundle(_bundle, _output, _template);
        memoryRequests.failing = std::numeric_limits<std::size_t>::max();
        _requests = memoryRequests.count;
        _failureTold = log.told;
        return done;
    }

    std::size_t _requests = 0; ///< of the last export
    bool _failureTold = false; ///< by its log
    const TempFolder _folder;
    // Optional, as the exporter takes them: what the caller asks for is not counted.
    const std::optional<FileURL> _bundle = FileURL::fileURLWithPath(writeBundle(_folder, "Plan.zelb"), true);
    const std::optional<FileURL> _output = FileURL::fileURLWithPath(_folder.path("out/Plan.mpp"), false);
    const std::optional<FileURL> _template =
        FileURL::fileURLWithPath(std::string(BRACKWATER_BINARY_DIR) + "/share/Template.mpp", false);
};

TEST_F(Allocations, EachThatFailsFailsTheExportInOrder) {
    ASSERT_TRUE(exportBundle()); // makes the tables that outlive an export
    ASSERT_TRUE(exportBundle());
    const std::size_t whole = _requests;
    const std::string listed = listing(readCompoundFile(_output->path()));
    std::size_t failures = 0;
    for (std::size_t failing = 0; failing < whole; ++failing) {
        bool done = false;
        ASSERT_NO_THROW(done = exportBundle(failing)) << failing;
        ASSERT_TRUE(done || _failureTold) << failing;
        failures += done ? 0 : 1;
        for (const auto& entry : fs::directory_iterator(_folder.path("out")))
            ASSERT_EQ(entry.path().filename(), "Plan.mpp") << failing;
        if (done) {
            ASSERT_EQ(listing(readCompoundFile(_output->path())), listed) << failing;
        }
    }
    EXPECT_GT(failures, whole / 2);
}

} // namespace
} // namespace brackwater::test
