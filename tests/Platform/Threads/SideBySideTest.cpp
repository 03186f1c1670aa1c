#include "Platform/Threads/SideBySide.h"

#include "Platform/Log/Log.h"
#include "support/LogCapture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace brackwater {
namespace {

TEST(SideBySide, LinesAndFailuresComeWhereAStepIsTakenForAnyNumberOfThreads) {
    for (const int threads : {-1, 1, 2, 3, 50}) {
        const test::LogCapture log;
        std::vector<int> results(20);
        std::vector<std::function<void()>> steps;
        for (int i = 0; i < 20; ++i)
            steps.emplace_back([i, &result = results[static_cast<std::size_t>(i)]] {
                logLine("begins {}", i);
                result = i + 1;
                if (i == 2)
                    throw std::runtime_error("failed");
                logLine("ends {}", i);
            });
        SideBySide sideBySide(std::move(steps), threads);
        logLine("first");
        for (const std::size_t step : {3U, 1U, 2U, 19U}) {
            try {
                sideBySide.take(step);
                logLine("gave {}", results[step]);
            } catch (const std::runtime_error& failure) {
                logLine("{}", failure.what());
            }
        }
        EXPECT_THAT(log.lines(),
                    testing::ElementsAre("first", "begins 3", "ends 3", "gave 4", "begins 1", "ends 1", "gave 2",
                                         "begins 2", "failed", "begins 19", "ends 19", "gave 20"))
            << threads;
    }
}

} // namespace
} // namespace brackwater
