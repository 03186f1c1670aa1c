// Compares a list of bundles exported by one process with one process per bundle: no state of one export may show in
// the next.
#include "DecodedFile.h"

#include "support/CompoundFile.h"
#include "support/TempFolder.h"
#include "support/ToolRun.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace brackwater::test {
namespace {

const std::string kSource = BRACKWATER_SOURCE_DIR;

// The last one has links and dated weeks, like the two before it.
const std::vector<std::string> kBundles = {"tests/golden/bundles/calendars.zelb", "tests/golden/bundles/links.zelb",
                                           "examples/House.zelb"};

// Streams that may differ in more than GUIDs: the numbers of links and of dated weeks, which continue through a
// process, and the time of writing. Only their decoded form is compared.
constexpr std::array<std::string_view, 5> kNumberedStreams = {
    "TBkndCons/FixedData", "TBkndCons/Fixed2Data", "TBkndCal/Var2Data", "TBkndAssn/FixedData", "TBkndAssn/Var2Data"};

constexpr std::size_t kGuidSize = 16;

using Streams = std::map<std::string, Bytes>;

void collectStreams(const CompoundTree& tree, const std::string& prefix, Streams& streams) {
    for (const CompoundEntry& entry : tree) {
        if (entry.children)
            collectStreams(*entry.children, prefix + entry.name + "/", streams);
        else
            streams[prefix + entry.name] = entry.bytes;
    }
}

Streams streamsOf(const std::string& path) {
    Streams streams;
    collectStreams(readCompoundFile(path), "", streams);
    return streams;
}

bool isNumbered(std::string_view path) {
    return std::any_of(kNumberedStreams.begin(), kNumberedStreams.end(),
                       [path](std::string_view end) { return path.ends_with(end); });
}

// Whether the bytes are equal except where two separate runs differ, which is in GUIDs: single bytes of two GUIDs may
// be equal by chance, but never all of them.
bool areEqualApartFromGuids(const Bytes& own, const Bytes& ownAgain, const Bytes& listed) {
    if (own.size() != ownAgain.size() || own.size() != listed.size())
        return false;
    std::vector<bool> random(own.size());
    for (std::size_t i = 0; i < own.size(); ++i) {
        if (own[i] == ownAgain[i])
            continue;
        for (std::size_t near = i < kGuidSize ? 0 : i - kGuidSize + 1; near < std::min(i + kGuidSize, own.size());
             ++near)
            random[near] = true;
    }
    for (std::size_t i = 0; i < own.size(); ++i)
        if (!random[i] && own[i] != listed[i])
            return false;
    return true;
}

class ListRun : public testing::TestWithParam<std::string> {
protected:
    void run(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), {"--template-path", templateOfLayout(GetParam())});
        const std::map<std::string, std::string> environment = {{"XDG_CONFIG_HOME", _folder.path("config")},
                                                                {"TZ", "UTC"}};
        const ToolEnd end = waitForTool(startTool({BRACKWATER_TOOL, arguments, environment, _folder.path("log")}));
        ASSERT_EQ(end.exitStatus, 0);
        ASSERT_EQ(_folder.read("log").find("### Exporter FAILED."), std::string::npos) << _folder.read("log");
    }

    TempFolder _folder;
};

TEST_P(ListRun, GivesTheSameFilesAsARunPerBundle) {
    std::string list;
    for (const std::string& bundle : kBundles)
        list += kSource + "/" + bundle + "\n";
    const std::string listed = _folder.makeFolder("listed");
    const std::string own = _folder.makeFolder("own");
    const std::string ownAgain = _folder.makeFolder("again");
    run({"--input-list", _folder.write("list.txt", list), listed});
    for (const std::string& bundle : kBundles) {
        run({kSource + "/" + bundle, own});
        run({kSource + "/" + bundle, ownAgain});
    }

    for (const std::string name : {"/calendars.mpp", "/links.mpp", "/House.mpp"}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(textOf(decodedFile(listed + name)), textOf(decodedFile(own + name)));
        const Streams ownStreams = streamsOf(own + name);
        const Streams ownStreamsAgain = streamsOf(ownAgain + name);
        const Streams listedStreams = streamsOf(listed + name);
        ASSERT_EQ(listedStreams.size(), ownStreams.size());
        for (const auto& [path, bytes] : ownStreams) {
            ASSERT_TRUE(listedStreams.contains(path)) << path;
            EXPECT_TRUE(isNumbered(path) ||
                        areEqualApartFromGuids(bytes, ownStreamsAgain.at(path), listedStreams.at(path)))
                << path;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Layouts, ListRun, testing::Values("112", "114"));

} // namespace
} // namespace brackwater::test
