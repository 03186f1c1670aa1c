// What memory is asked for: each request fails in turn, and their number grows with the input and no faster.
#include "MemoryRequests.h"

#include "MPPXMLDOMFilter/Export/MSPEMPPExporter.h"
#include "Platform/Log/Log.h"
#include "support/CompoundFile.h"
#include "support/PlanBundle.h"
#include "support/ScenarioBuilder.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
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

    std::size_t requestsFor(const ScenarioBuilder& scenario, const std::string& baseline = {}) {
        TableOfContents contents;
        if (!baseline.empty()) {
            contents.scenarios.push_back({"s2", "baseline.xml", "Signed"});
            contents.windows = {{"s1", "s2"}};
            _folder.write("Plan.zelb/baseline.xml", baseline);
        }
        writeBundle(_folder, "Plan.zelb", contents);
        _folder.write("Plan.zelb/plan.xml", scenario.text());
        EXPECT_TRUE(exportBundle());
        return _requests;
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

struct Dimension {
    const char* name;
    std::function<void(ScenarioBuilder&, int)> add; ///< so many
    bool inBaseline = false;
};

TEST_F(Allocations, TheirNumberGrowsNoFasterThanTheInput) {
    const auto each = [](int count, const std::function<void(const std::string&, int)>& action) {
        for (int number = 1; number <= count; ++number)
            action(std::to_string(number), number);
    };
    const std::string day =
        "<schedule-day day-of-week=\"monday\"><time-span start-time=\"0\" end-time=\"3600\"/></schedule-day>";
    const std::string note = "<note><text><p><run><lit>Wall</lit></run></p></text></note>";
    const std::vector<Dimension> dimensions = {
        {"tasks",
         [&](ScenarioBuilder& to, int n) {
             each(n, [&](const std::string& id, int) { to.task("t" + id, "title=Wall effort=3600", note); });
         }},
        {"tasks of the baseline too",
         [&](ScenarioBuilder& to, int n) {
             each(n, [&](const std::string& id, int) { to.task("t" + id, "effort=3600"); });
         },
         true},
        {"links",
         [&](ScenarioBuilder& to, int n) {
             each(n, [&](const std::string& id, int number) {
                 to.task("t" + id, number == 1 ? "" : "after=t" + std::to_string(number - 1));
             });
         }},
        {"predecessors of one task",
         [&](ScenarioBuilder& to, int n) {
             std::string items;
             each(n, [&](const std::string& id, int number) {
                 if (number > 1)
                     to.task("t" + id);
                 items += number > 1 ? " after=t" + id : "";
             });
             to.task("t1", items);
         }},
        {"levels",
         [&](ScenarioBuilder& to, int n) {
             each(n, [&](const std::string& id, int number) {
                 to.task("t" + id, number == n ? "" : "type=group child=t" + std::to_string(number + 1));
             });
         }},
        {"resources with schedules",
         [&](ScenarioBuilder& to, int n) {
             each(n, [&](const std::string& id, int) {
                 to.resource("r" + id, "type=Staff name=Anna", "<schedule>" + day + "</schedule>");
             });
         }},
        {"assignments of one task",
         [&](ScenarioBuilder& to, int n) {
             std::string items;
             each(n, [&](const std::string& id, int) {
                 to.resource("r" + id, "type=Staff");
                 items += " assign=r" + id;
             });
             to.task("t1", items);
         }},
    };
    for (const Dimension& dimension : dimensions) {
        const auto requestsOf = [&](int n) {
            std::string resources, tasks;
            const bool inOneTree = std::string_view(dimension.name) != "levels" &&
                                   std::string_view(dimension.name) != "assignments of one task";
            for (int number = 1; number <= n; ++number) {
                const std::string comma = number == 1 ? "" : ",";
                resources += comma + "r" + std::to_string(number);
                tasks += number == 1 || inOneTree ? comma + "t" + std::to_string(number) : "";
            }
            auto scenario = ScenarioBuilder::withRoots(resources, tasks);
            dimension.add(scenario, n);
            return requestsFor(scenario, dimension.inBaseline ? scenario.text() : "");
        };
        const std::size_t ofNone = requestsOf(1);
        const std::size_t once = requestsOf(300) - ofNone;
        const std::size_t twice = requestsOf(600) - ofNone;
        EXPECT_LE(static_cast<double>(twice), 2.2 * static_cast<double>(once)) << dimension.name << ": " << once;
        EXPECT_GE(once, 300U) << dimension.name;
    }
}

} // namespace
} // namespace brackwater::test
