#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPEIdMapper.h"

#include "support/ExpectException.h"

#include <gtest/gtest.h>

namespace brackwater::test {

TEST(IdMapper, NumberOfTheIdIsTheUidAndRootsAreZero) {
    const MSPEIdMapper ids("r-1", "t7");
    EXPECT_EQ(ids.taskUIDFromZelbId("t12"), "12");
    EXPECT_EQ(ids.taskUIDFromZelbId("t12x"), "12x");
    EXPECT_EQ(ids.taskUIDFromZelbId("t007"), "007");
    EXPECT_EQ(ids.taskUIDFromZelbId("t7"), "0");
    EXPECT_EQ(ids.resourceUIDFromZelbResourceId("r3"), "3");
    EXPECT_EQ(ids.resourceUIDFromZelbResourceId("r-1"), "0");
}

TEST(IdMapper, IdsWithoutAPositiveNumberHaveAnEmptyUid) {
    const MSPEIdMapper ids("r-1", "t-1");
    for (const char* id : {"t0", "t-2", "t", "tx1", ""})
        EXPECT_EQ(ids.taskUIDFromZelbId(id), "") << id;
    EXPECT_EQ(ids.taskUIDFromZelbId(std::nullopt), "");
    EXPECT_EQ(ids.resourceUIDFromZelbResourceId("r0"), "");
    EXPECT_EQ(ids.resourceUIDFromZelbResourceId(std::nullopt), "");
}

TEST(IdMapper, WrongPrefixFails) {
    expectAssertion("Invalid format of ZELB top Resource ID (must begin with 'r'): t1",
                    [] { MSPEIdMapper("t1", "t1"); });
    expectAssertion("Invalid format of ZELB top Resource ID (must begin with 'r'): (null)",
                    [] { MSPEIdMapper(std::nullopt, "t1"); });
    expectAssertion("Invalid format of ZELB top Task ID (must begin with 't'): ", [] { MSPEIdMapper("r1", ""); });
    const MSPEIdMapper ids("r-1", "t-1");
    expectAssertion("Invalid format of ZELB Resource ID (must begin with 'r'): 3",
                    [&] { static_cast<void>(ids.resourceUIDFromZelbResourceId("3")); });
    expectAssertion("Invalid format of ZELB Task ID (must begin with 't'): T3",
                    [&] { static_cast<void>(ids.taskUIDFromZelbId("T3")); });
}

} // namespace brackwater::test
