#include "Platform/Text/RegularExpression.h"

#include "Platform/Text/WhiteSpace.h"
#include "Platform/Values/Exception.h"

#include <gtest/gtest.h>

#include <vector>

namespace brackwater {
namespace {

using Ranges = std::vector<RegularExpression::Range>;

TEST(RegularExpression, CountsMatchesInBytes) {
    EXPECT_EQ(RegularExpression("b+").matchesInString("\xC3\xA4 bb abbb"), (Ranges{{3, 2}, {7, 3}}));
    EXPECT_EQ(RegularExpression("b").matchesInString("\xFF b \xC3"), (Ranges{{2, 1}}));
    EXPECT_TRUE(RegularExpression("b").matchesInString("").empty());
}

TEST(RegularExpression, AnchorsMatchAtLineEnds) {
    EXPECT_EQ(RegularExpression("[:digit:]$").matchesInString("1\n22\nx"), (Ranges{{0, 1}, {3, 1}}));
}

TEST(RegularExpression, FailsToCompileWithAReason) { EXPECT_THROW(RegularExpression("(a"), Exception); }

TEST(WhiteSpace, IsTrimmedAtBothEnds) {
    EXPECT_EQ(trimmed(" \t\r\n\xC2\xA0 a b\xE3\x80\x80\xE2\x80\xA8\v"), "a b");
    EXPECT_EQ(trimmed(" \n"), "");
    EXPECT_EQ(trimmed("\xA0"
                      "a\x80"),
              "\xA0"
              "a\x80")
        << "halves of characters";
}

} // namespace
} // namespace brackwater
