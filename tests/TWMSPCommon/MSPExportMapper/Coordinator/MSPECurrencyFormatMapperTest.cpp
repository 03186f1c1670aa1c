#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPECurrencyFormatMapper.h"

#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPEMapper.h"
#include "support/ScenarioBuilder.h"

#include <gtest/gtest.h>

namespace brackwater::test {

namespace {

struct Row {
    const char* sample;
    std::int64_t digits;
    const char* symbol;
    const char* code;
    std::int64_t position;
};

class CurrencyFormat : public testing::TestWithParam<Row> {};

std::string sampleXml(std::string_view sample) {
    return std::string("<currency-format>").append(sample).append("</currency-format>");
}

} // namespace

TEST_P(CurrencyFormat, ComesFromTheSample) {
    const Row& row = GetParam();
    MSPEMapper mapper(nullptr, tableOfContents(sampleXml(row.sample)), {}, std::nullopt);
    const MSPECurrencyFormatMapper currency(&mapper);
    EXPECT_EQ(currency.currencyDigits(), row.digits);
    EXPECT_EQ(currency.currencySymbol(), row.symbol);
    EXPECT_EQ(currency.currencyCode(), row.code);
    EXPECT_EQ(currency.currencySymbolPosition(), row.position);
}

INSTANTIATE_TEST_SUITE_P(Samples, CurrencyFormat,
                         testing::Values(Row{"$1,234.56", 2, "$", "USD", 0}, Row{"1,234.56 kr", 2, "kr", "SEK", 3},
                                         Row{"1,234.5kr", 1, "kr", "SEK", 1}, Row{"€ 1,000", 0, "€", "EUR", 2},
                                         Row{"£1,234.56", 2, "£", "GBP", 0}, Row{"￥1,234", 0, "￥", "JPY", 0},
                                         Row{"P1.00", 2, "P", "BWP", 0}, Row{"1,000", 0, "", "", 0},
                                         // The match ends at the first blank.
                                         Row{"1 234,56 kr", 0, "234,56 kr", "", 3},
                                         // A comma alone is an amount, and the last of several fractions counts.
                                         Row{"a,b", 0, "a", "", 0}, Row{"$1.5.125", 3, "$", "USD", 0},
                                         // The prefix is not trimmed, and a no-break space is not a blank.
                                         Row{" x 1", 0, " x", "", 2}, Row{"1\u00A0kr", 0, "\u00A0kr", "", 1},
                                         Row{"Qq1", 0, "Qq", "", 0},
                                         // No amount: the defaults.
                                         Row{"money", 2, "$", "USD", 0}, Row{"", 2, "$", "USD", 0}));

TEST(CurrencyFormatOfDocument, AbsentSampleGivesTheDefaults) {
    MSPEMapper mapper(nullptr, tableOfContents("<title>x</title>"), {}, std::nullopt);
    const MSPECurrencyFormatMapper currency(&mapper);
    EXPECT_EQ(currency.currencyDigits(), 2);
    EXPECT_EQ(currency.currencySymbol(), "$");
    EXPECT_EQ(currency.currencyCode(), "USD");
}

TEST(CurrencyFormatOfDocument, SampleIsFoundAtAnyDepth) {
    const auto toc = documentOf("<a><b><project><currency-format>1.0kr</currency-format></project></b></a>");
    MSPEMapper mapper(nullptr, toc, {}, std::nullopt);
    EXPECT_EQ(MSPECurrencyFormatMapper(&mapper).currencySymbol(), "kr");
}

} // namespace brackwater::test
