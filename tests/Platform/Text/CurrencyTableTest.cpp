#include "Platform/Text/CurrencyTable.h"

#include <gtest/gtest.h>

namespace brackwater {
namespace {

TEST(CurrencyTable, SymbolOfOneCurrencyGivesItsCode) {
    EXPECT_EQ(currencyCodeForSymbol("\u20AC"), "EUR");
    EXPECT_EQ(currencyCodeForSymbol("\u00A3"), "GBP");
    EXPECT_EQ(currencyCodeForSymbol("CHF"), "CHF");
    EXPECT_EQ(currencyCodeForSymbol("z\u0142"), "PLN");
    EXPECT_EQ(currencyCodeForSymbol("\u20AA"), "ILS");
    EXPECT_EQ(currencyCodeForSymbol("R$"), "BRL");
}

TEST(CurrencyTable, AmbiguousSymbolHasACodeOnlyIfOneIsPreferred) {
    EXPECT_EQ(currencyCodeForSymbol("$"), "USD");
    EXPECT_EQ(currencyCodeForSymbol("kr"), "SEK");
    EXPECT_EQ(currencyCodeForSymbol("\uFFE5"), "JPY");
    EXPECT_EQ(currencyCodeForSymbol("P"), "BWP");
    EXPECT_EQ(currencyCodeForSymbol("Rs"), std::nullopt) << "rupees of two countries";
}

TEST(CurrencyTable, SymbolsAreComparedLiterally) {
    for (const char* symbol : {"", " $", "$ ", "KR", "\u20AC\u00A0", "nothing"})
        EXPECT_EQ(currencyCodeForSymbol(symbol), std::nullopt) << symbol;
}

} // namespace
} // namespace brackwater
