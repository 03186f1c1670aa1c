// What the program finds at its start: descriptors that are closed.
#include "ToolTest.h"

#include "support/CompoundFile.h"
#include "support/ScenarioBuilder.h"

#include <cstdlib>

namespace brackwater::test {
namespace {

class Environment : public ToolTest {
protected:
    /// A plan whose log is longer than the buffer of its lines.
    void writeTalkativePlan() const {
        std::string ids = "t1";
        for (int number = 2; number <= 500; ++number)
            ids += ",t" + std::to_string(number);
        auto scenario = ScenarioBuilder::withRoots("", ids);
        for (int number = 1; number <= 500; ++number)
            scenario.task("t" + std::to_string(number));
        _folder.write("Plan.zelb/plan.xml", scenario.text());
    }
};

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

} // namespace
} // namespace brackwater::test
