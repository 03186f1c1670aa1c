#include "Platform/Text/PosixPattern.h"

#include "support/ExpectException.h"

#include <gtest/gtest.h>

#include <string>

namespace brackwater {
namespace {

TEST(PosixPattern, FindsTheLeftmostLongestMatch) {
    const PosixPattern pattern("(a|ab)(c|bcd)?");
    const std::string text = "xabcd";
    const auto match = pattern.match(text);
    ASSERT_TRUE(match);
    EXPECT_EQ(textOf((*match)[0], text), "abcd");
    EXPECT_EQ((*match)[0], (PosixPattern::Range{1, 5}));
    EXPECT_EQ(textOf((*match)[2], text), "bcd");
}

TEST(PosixPattern, DistinguishesAbsentFromEmptyGroups) {
    const PosixPattern pattern("x(y)?(z*)");
    const auto match = pattern.match("x");
    ASSERT_TRUE(match);
    EXPECT_EQ(match->size(), 3U);
    EXPECT_EQ((*match)[1], std::nullopt);
    EXPECT_EQ((*match)[2], (PosixPattern::Range{1, 1}));
    EXPECT_FALSE(pattern.match("y"));
}

TEST(PosixPattern, MatchesBytesAndEndsAtNul) {
    const PosixPattern pattern("^.$");
    EXPECT_TRUE(pattern.match("\xC3"));
    EXPECT_FALSE(pattern.match("\xC3\xA9")) << "one character, two bytes";
    EXPECT_TRUE(pattern.match(std::string_view("a\0b", 3)));
}

TEST(PosixPattern, ReportsWhyAPatternDoesNotCompile) {
    test::expectAssertion("Failed to compile reqular expression '(a': Unmatched ( or \\(", [] { PosixPattern("(a"); });
}

} // namespace
} // namespace brackwater
