#include "Platform/Threads/BlocksAhead.h"

#include "Platform/Values/PerThread.h"
#include "support/LogCapture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace brackwater {
namespace {

struct Outcome {
    std::vector<std::string> log;
    std::vector<std::size_t> items;
    bool wasHelped = false;
};

// The owner goes through blocks up to `last`; the seventh fails.
Outcome goThrough(bool hasHelper, std::size_t last) {
    const test::LogCapture log;
    Outcome outcome;
    const Blocks blocks(4010);
    std::vector<std::vector<std::size_t>> items(blocks.count());
    std::atomic<bool> wasHelped = !hasHelper;
    const auto doBlock = [&](std::size_t block) {
        logLine("begins {}", block);
        if (block == 7)
            throw std::runtime_error("failed");
        for (std::size_t item = blocks.beginOf(block); item < blocks.endOf(block); ++item)
            items[block].push_back(item);
        if (isHelperThread)
            wasHelped = true;
        wasHelped.notify_one();
        logLine("ends {}", block);
    };
    BlocksAhead ahead(blocks, hasHelper, doBlock);
    try {
        for (std::size_t block = 0; block <= last; ++block) {
            const bool isTaken = ahead.take(block);
            outcome.wasHelped = outcome.wasHelped || isTaken;
            if (!isTaken)
                doBlock(block);
            outcome.items.insert(outcome.items.end(), items[block].begin(), items[block].end());
            wasHelped.wait(false);
        }
    } catch (const std::runtime_error& failure) {
        logLine("{}", failure.what());
    }
    outcome.log = log.lines();
    return outcome;
}

TEST(BlocksAhead, LinesAndFailuresComeInOrderWithAndWithoutAHelper) {
    const Outcome alone = goThrough(false, 20);
    EXPECT_FALSE(alone.wasHelped);
    EXPECT_THAT(alone.log, testing::SizeIs(7 * 2 + 2));
    EXPECT_EQ(alone.log.back(), "failed");
    EXPECT_EQ(alone.items.size(), 1400U);
    const Outcome helped = goThrough(true, 20);
    EXPECT_TRUE(helped.wasHelped);
    EXPECT_EQ(helped.log, alone.log);
    EXPECT_EQ(helped.items, alone.items);
}

TEST(BlocksAhead, OwnerMayStopAtAnyBlock) {
    EXPECT_EQ(goThrough(true, 2).log, goThrough(false, 2).log);
    EXPECT_EQ(Blocks(0).count(), 0U);
    EXPECT_EQ(Blocks(4010).endOf(20), 4010U);
}

} // namespace
} // namespace brackwater
