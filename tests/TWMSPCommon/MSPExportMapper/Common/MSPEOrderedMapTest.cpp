#include "TWMSPCommon/MSPExportMapper/Common/MSPEOrderedMap.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace brackwater {
namespace {

// Compares with a plain map and a list of its keys, for any order of calls.
TEST(OrderedMap, BehavesLikeAPlainMapAndKeepsInsertionOrder) {
    std::mt19937 random(20'121);
    MSPEOrderedMap<std::string, int> map;
    std::map<std::string, int> expected;
    std::vector<std::string> order;
    for (int step = 0; step < 20'000; ++step) {
        const std::string key = "t" + std::to_string(random() % 3'000);
        const bool isNew = !expected.contains(key);
        if (const int* found = map.find(key); found != nullptr)
            EXPECT_EQ(*found, expected.at(key));
        else
            EXPECT_TRUE(isNew);
        if (step % 3 == 0) {
            EXPECT_EQ(map.tryAdd(key, step), isNew);
            expected.emplace(key, step);
        } else if (step % 3 == 1) {
            EXPECT_EQ(map.set(key, step), step);
            expected[key] = step;
        }
        if (isNew && expected.contains(key))
            order.push_back(key);
    }
    std::size_t place = 0;
    ASSERT_EQ(map.size(), order.size());
    for (const auto& entry : map) {
        EXPECT_EQ(entry.key, order[place++]);
        EXPECT_EQ(entry.value, expected.at(entry.key));
    }
}

TEST(OrderedMap, ValueKeepsItsAddressWhileTheMapGrows) {
    MSPEOrderedMap<std::int64_t, int> map;
    const int* first = &map.set(7, 1);
    for (std::int64_t key = 100; key < 5'000; ++key)
        map.set(key, 0);
    EXPECT_EQ(map.find(7), first);
    map.set(7, 2);
    EXPECT_EQ(*first, 2);
    EXPECT_EQ(map.find(8), nullptr);
}

} // namespace
} // namespace brackwater
