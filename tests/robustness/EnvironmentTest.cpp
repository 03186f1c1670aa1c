// What the program finds about it: descriptors that are closed, and another that exports to the same name.
#include "ToolTest.h"

#include "support/CompoundFile.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>

namespace brackwater::test {
namespace {

class Environment : public ToolTest {};

TEST_F(Environment, ClosedDescriptorsNeverLetTheLogIntoTheOutput) {
    writeTalkativePlan();
    const std::string packed = _folder.path("Packed.mpp");
    ASSERT_EQ(std::system(("gzip -c '" + _template + "' >'" + packed + "'").c_str()), 0);
    exportTo(_folder.path("out/Whole.mpp"));
    ASSERT_GT(log().size(), std::size_t{1} << 16);
    const std::string whole = listing(readCompoundFile(_folder.path("out/Whole.mpp")));
    for (const std::string& used : {_template, packed}) {
        _template = used;
        for (int closed = used == packed ? 4 : 1; closed < 8; ++closed) { // bits, one a descriptor
            _closed.clear();
            for (int descriptor = 0; descriptor < 3; ++descriptor)
                if ((closed & (1 << descriptor)) != 0)
                    _closed.push_back(descriptor);
            const std::string name = "out/" + std::to_string(closed) + (used == packed ? "p.mpp" : ".mpp");
            EXPECT_EQ(exportTo(_folder.path(name)).exitStatus, 0);
            ASSERT_TRUE(_folder.has(name)) << name;
            EXPECT_EQ(listing(readCompoundFile(_folder.path(name))), whole) << name;
            EXPECT_EQ(_folder.read(name).find(" Brackwater["), std::string::npos) << name;
        }
    }
}

TEST_F(Environment, TwoExportsOfOneNameAtOneMomentAreBothThereAndWhole) {
    _template = _folder.path("Small.mpp");
    writeCompoundFile(_template, {compObj2007(), stream("Other", patternBytes(5000)), stream("Last", {})});
    for (int round = 0; round < 200; ++round) {
        std::filesystem::remove_all(_out);
        _folder.makeFolder("out");
        const pid_t first = startExport(_folder.path("out/Plan.mpp"));
        waitForTool(startExport(_folder.path("out/Plan.mpp")));
        waitForTool(first);
        ASSERT_THAT(namesIn(_out), testing::UnorderedElementsAre("Plan.mpp", "Plan-1.mpp")) << round;
        for (const char* name : {"out/Plan.mpp", "out/Plan-1.mpp"})
            ASSERT_EQ(readCompoundFile(_folder.path(name)).size(), 3U) << name << " " << round;
    }
}

} // namespace
} // namespace brackwater::test
