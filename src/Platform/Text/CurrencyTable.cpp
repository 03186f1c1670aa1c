#include "Platform/Text/CurrencyTable.h"

#include <unicode/ucurr.h>
#include <unicode/uloc.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <array>
#include <map>
#include <set>

namespace brackwater {

namespace {

struct SymbolAndCode {
    std::string_view symbol;
    std::string_view code;
};

// The preferred currency of ambiguous symbols; other ambiguous symbols have no code. The last two symbols are
// unambiguous: the table has them too, but building it takes as long as the rest of a small export.
constexpr std::array<SymbolAndCode, 6> kSettled = {{
    {"P", "BWP"},
    {"$", "USD"},
    {"kr", "SEK"},
    {"\uFFE5", "JPY"}, // fullwidth yen sign
    {"\u20AC", "EUR"},
    {"\u00A3", "GBP"},
}};

// Pounds of small territories, left out so that the sign alone means the British pound.
constexpr std::string_view kPoundSign = "\u00A3";
constexpr std::array<std::string_view, 4> kSmallPounds = {"FKP", "GIP", "SHP", "SSP"};

const SymbolAndCode* settledCode(std::string_view symbol) {
    const auto* found = std::find_if(kSettled.begin(), kSettled.end(),
                                     [symbol](const SymbolAndCode& pair) { return pair.symbol == symbol; });
    return found == kSettled.end() ? nullptr : found;
}

using CodesOfSymbol = std::map<std::string, std::set<std::string>, std::less<>>;
using CodeOfSymbol = std::map<std::string, std::string, std::less<>>;

std::string utf8(const UChar* text, std::int32_t length) {
    std::string bytes;
    return icu::UnicodeString(false, text, length).toUTF8String(bytes);
}

bool isSmallPound(const std::string& symbol, const std::string& code) {
    return symbol == kPoundSign && std::find(kSmallPounds.begin(), kSmallPounds.end(), code) != kSmallPounds.end();
}

// A locale without a currency adds nothing.
void collect(const char* locale, CodesOfSymbol& codesOfSymbol) {
    constexpr std::int32_t capacity = 8;
    std::array<UChar, capacity> code{};
    UErrorCode status = U_ZERO_ERROR;
    const std::int32_t codeLength = ucurr_forLocale(locale, code.data(), capacity, &status);
    if (U_FAILURE(status) || codeLength <= 0 || codeLength >= capacity)
        return;
    std::int32_t symbolLength = 0;
    const UChar* symbol = ucurr_getName(code.data(), locale, UCURR_SYMBOL_NAME, nullptr, &symbolLength, &status);
    if (U_FAILURE(status) || symbolLength <= 0)
        return;
    std::string symbolText = utf8(symbol, symbolLength);
    std::string codeText = utf8(code.data(), codeLength);
    if (!isSmallPound(symbolText, codeText))
        codesOfSymbol[std::move(symbolText)].insert(std::move(codeText));
}

CodeOfSymbol makeTable() {
    CodesOfSymbol codesOfSymbol;
    for (std::int32_t index = 0; index < uloc_countAvailable(); ++index)
        collect(uloc_getAvailable(index), codesOfSymbol);
    CodeOfSymbol table;
    for (const auto& [symbol, codes] : codesOfSymbol)
        if (codes.size() == 1)
            table.emplace(symbol, *codes.begin());
    return table;
}

} // namespace

std::optional<std::string> currencyCodeForSymbol(std::string_view symbol) {
    // The most common symbols need no search through hundreds of locale currencies.
    if (const auto* settled = settledCode(symbol))
        return std::string(settled->code);
    static const CodeOfSymbol table = makeTable();
    const auto found = table.find(symbol);
    return found == table.end() ? std::nullopt : std::optional(found->second);
}

} // namespace brackwater
