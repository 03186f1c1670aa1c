#include "TWMSPCommon/MSPImportMapper/IsoScanner.h"

#include "Platform/Text/PosixPattern.h"

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace brackwater::iso {
namespace {

using Groups = std::vector<std::string_view>;

/// The result of a scanner, in the order of the pattern's groups: the whole match first.
using Scan = std::function<std::optional<Groups>(std::string_view)>;

std::optional<Groups> dateGroups(std::string_view text) {
    const DateMatch match = scanDate(text);
    return Groups{match.whole, match.year, match.month, match.day};
}

std::optional<Groups> timeGroups(std::string_view text) {
    const auto match = scanTime(text);
    if (!match)
        return std::nullopt;
    return Groups{match->whole, match->hour, match->minute,   match->second,    match->fraction,
                  match->zone,  match->sign, match->zoneHour, match->zoneMinute};
}

std::optional<Groups> durationGroups(const std::optional<DurationMatch>& match) {
    if (!match)
        return std::nullopt;
    return Groups{match->whole, match->years, match->months, match->days, match->hours, match->minutes, match->seconds};
}

/// A pattern and the scanner that replaces it.
class Equivalence {
public:
    Equivalence(const char* pattern, std::vector<std::size_t> groups, Scan scan)
        : _pattern(pattern), _groups(std::move(groups)), _scan(std::move(scan)) {}

    /// Whether both find the same. Groups are compared by position and length; an empty one equals an absent one.
    testing::AssertionResult agreeOn(std::string_view text) const {
        const auto expected = expectedGroups(text);
        const auto found = _scan(text);
        if (expected.has_value() != found.has_value())
            return testing::AssertionFailure() << "\"" << text << "\" matches in one of the two only";
        for (std::size_t i = 0; expected && i < expected->size(); ++i) {
            const std::string_view& wanted = (*expected)[i];
            const std::string_view& got = (*found)[i];
            if (wanted.size() != got.size() || (!wanted.empty() && wanted.data() != got.data()))
                return testing::AssertionFailure() << "\"" << text << "\", group " << _groups[i] << ": pattern \""
                                                   << wanted << "\", scanner \"" << got << "\"";
        }
        return testing::AssertionSuccess();
    }

    /// Every text of up to `length` characters of the alphabet after the prefix.
    void expectAgreementOnAll(const std::string& prefix, std::string_view alphabet, std::size_t length) const {
        std::string text = prefix;
        expectAgreementBehind(text, alphabet, length);
    }

    void expectAgreementOnRandomTexts(std::string_view alphabet, std::size_t count) const {
        std::mt19937 random(4711);
        std::uniform_int_distribution<std::size_t> length(5, 40);
        std::uniform_int_distribution<std::size_t> letter(0, alphabet.size() - 1);
        for (std::size_t i = 0; i < count && !testing::Test::HasFailure(); ++i) {
            std::string text(length(random), ' ');
            for (char& c : text)
                c = alphabet[letter(random)];
            EXPECT_TRUE(agreeOn(text));
        }
    }

private:
    std::optional<Groups> expectedGroups(std::string_view text) const {
        const auto match = _pattern.match(text);
        if (!match)
            return std::nullopt;
        Groups groups;
        for (const std::size_t group : _groups)
            groups.push_back(textOf((*match)[group], text));
        return groups;
    }

    void expectAgreementBehind(std::string& text, std::string_view alphabet, std::size_t length) const {
        EXPECT_TRUE(agreeOn(text));
        if (length == 0 || testing::Test::HasFailure())
            return;
        for (const char c : alphabet) {
            text.push_back(c);
            expectAgreementBehind(text, alphabet, length - 1);
            text.pop_back();
        }
    }

    PosixPattern _pattern;
    std::vector<std::size_t> _groups;
    Scan _scan;
};

// All digits are equivalent to the patterns, so one is enough when every text is tried.
constexpr std::string_view kReducedAlphabet = "5T:.+-Z /P";
constexpr std::string_view kFullAlphabet = "0123456789T:.+-Z /P";

const Equivalence& date() {
    static const Equivalence equivalence(kDatePattern, {0, 2, 3, 4}, dateGroups);
    return equivalence;
}

const Equivalence& time() {
    static const Equivalence equivalence(kTimePattern, {0, 1, 2, 3, 4, 6, 8, 9, 10}, timeGroups);
    return equivalence;
}

const Equivalence& duration() {
    static const Equivalence equivalence(kDurationPattern, {0, 3, 5, 7, 10, 12, 14},
                                         [](std::string_view text) { return durationGroups(scanDuration(text)); });
    return equivalence;
}

TEST(IsoScanner, FindsDatesAsThePatternDoes) {
    date().expectAgreementOnAll("", kReducedAlphabet, 5);
    date().expectAgreementOnAll("", "5-", 12);
    date().expectAgreementOnRandomTexts(kFullAlphabet, 20000);
    date().expectAgreementOnRandomTexts("2-T", 20000);
}

TEST(IsoScanner, FindsTimesAsThePatternDoes) {
    time().expectAgreementOnAll("", kReducedAlphabet, 5);
    time().expectAgreementOnAll("::", kReducedAlphabet, 5);
    time().expectAgreementOnAll("2012-06-01T08:30:0", kReducedAlphabet, 4);
    time().expectAgreementOnAll("", "5:+Z", 8);
    time().expectAgreementOnRandomTexts(kFullAlphabet, 20000);
    time().expectAgreementOnRandomTexts("0:+-.Z", 20000);
}

TEST(IsoScanner, AcceptsAnyByteAsTheStartOfAFraction) {
    for (int byte = 1; byte < 256; ++byte) {
        const std::string text = std::string("08:30:00") + static_cast<char>(byte);
        for (const char* rest : {"", "5", "Z", "5Z", "+02:00", "\xA9+02:00", "5+02:00"})
            ASSERT_TRUE(time().agreeOn(text + rest));
    }
}

TEST(IsoScanner, FindsDurationsAsThePatternDoes) {
    duration().expectAgreementOnAll("", "5PTYMDHS", 5);
    duration().expectAgreementOnAll("P", "5TYMD", 6);
    duration().expectAgreementOnAll("PT", "5HMS", 7);
    duration().expectAgreementOnRandomTexts("05PTYMDHS", 40000);
    duration().expectAgreementOnRandomTexts(kFullAlphabet, 20000);
}

// The strict form counts only if the leftmost match is at the start of the text.
TEST(IsoScanner, FindsStrictDurationsAsThePatternDoes) {
    const PosixPattern pattern(kStrictDurationPattern);
    const auto expectSame = [&pattern](const std::string& text) {
        const auto expected = pattern.match(text);
        const bool atBegin = expected && (*expected)[0]->begin == 0;
        const auto found = scanStrictDuration(text);
        ASSERT_EQ(found.has_value(), atBegin) << text;
        if (!found)
            return;
        EXPECT_EQ(found->whole, textOf((*expected)[0], text)) << text;
        EXPECT_EQ(found->hours, textOf((*expected)[1], text)) << text;
        EXPECT_EQ(found->minutes, textOf((*expected)[2], text)) << text;
        EXPECT_EQ(found->seconds, textOf((*expected)[3], text)) << text;
    };
    std::mt19937 random(4711);
    constexpr std::string_view alphabet = "05PTHMS";
    std::uniform_int_distribution<std::size_t> letter(0, alphabet.size() - 1);
    std::uniform_int_distribution<std::size_t> length(0, 8);
    for (int i = 0; i < 50000 && !HasFailure(); ++i) {
        std::string text = i % 2 == 0 ? "PT" : "PT5H";
        for (std::size_t n = length(random); n > 0; --n)
            text += alphabet[letter(random)];
        expectSame(text);
        expectSame(text.substr(1));
        expectSame("5" + text);
    }
    for (const char* text : {"PT8H0M0S", "PTHMS", "PT8H0M0Sx", " PT8H0M0S", "P1DT1H", "PT1H", ""})
        expectSame(text);
}

TEST(IsoScanner, ScansAMegabyteQuickly) {
    const auto start = std::chrono::steady_clock::now();
    for (const char* piece : {"1", "-", ":", "1:", "1-", "P", "P1", "PT1", "+1", "T", "Z", "\xff", "1:1x"}) {
        std::string text;
        while (text.size() < 1'000'000)
            text += piece;
        EXPECT_LE(scanDate(text).whole.size(), text.size());
        EXPECT_EQ(scanTime(text).has_value(), std::string_view(piece).starts_with(":") || piece == std::string("1:"));
        EXPECT_EQ(scanDuration(text).has_value(), piece == std::string("PT1"));
        EXPECT_FALSE(scanStrictDuration(text));
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

} // namespace
} // namespace brackwater::iso
