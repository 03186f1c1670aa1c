#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPECurrencyFormatMapper.h"

#include "Platform/Text/CurrencyTable.h"
#include "Platform/Text/PosixPattern.h"
#include "Platform/Xml/XMLDocument.h"
#include "TWMSPCommon/MSPCExtensions.h"
#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPEMapper.h"

namespace brackwater {

namespace {

constexpr std::size_t kSpaceBefore = 1;
constexpr std::size_t kFraction = 3;
constexpr std::size_t kSpaceBehind = 4;

// The amount in a sample: blanks, digits and thousands separators, fractions, blanks.
const PosixPattern& amountPattern() {
    static const PosixPattern pattern("([[:space:]]*)([[:digit:],]+)([.][[:digit:]]+)*([[:space:]]*)");
    return pattern;
}

bool isEmpty(const std::optional<PosixPattern::Range>& range) { return !range || range->begin == range->end; }

// From the start of the first non-empty group to the end of the last. The group of digits is never empty.
PosixPattern::Range spanOfGroups(const PosixPattern::Match& match) {
    PosixPattern::Range span{};
    bool found = false;
    for (std::size_t group = kSpaceBefore; group <= kSpaceBehind; ++group) {
        if (isEmpty(match[group]))
            continue;
        if (!found)
            span.begin = match[group]->begin;
        span.end = match[group]->end;
        found = true;
    }
    return span;
}

} // namespace

MSPECurrencyFormatMapper::MSPECurrencyFormatMapper(MSPEMapper* mapper) : MSPEObjectMapperBase(mapper) {
    const auto sample = singleObjectForXQuery(mapper->zelbTOCXmlDoc()->rootElement(), "//project/currency-format");
    std::string buffer;
    if (sample)
        readSample(sample->textView(buffer));
}

void MSPECurrencyFormatMapper::readSample(std::string_view sample) {
    const auto match = amountPattern().match(sample);
    if (!match)
        return;
    const auto& fraction = (*match)[kFraction];
    _currencyDigits = isEmpty(fraction) ? 0 : static_cast<std::int64_t>(fraction->end - fraction->begin) - 1;

    const PosixPattern::Range amount = spanOfGroups(*match);
    const std::string_view prefix = sample.substr(0, amount.begin);
    const std::string_view suffix = sample.substr(amount.end);
    if (!prefix.empty())
        setSymbol(prefix, isEmpty((*match)[kSpaceBefore]) ? 0 : 2);
    else if (!suffix.empty())
        setSymbol(suffix, isEmpty((*match)[kSpaceBehind]) ? 1 : 3);
    else
        setSymbol({}, 0);
}

void MSPECurrencyFormatMapper::setSymbol(std::string_view symbol, std::int64_t position) {
    _currencySymbol = symbol;
    _currencyCode = symbol.empty() ? std::string() : std::string(currencyCodeForSymbol(symbol).value_or(""));
    _currencySymbolPosition = position;
}

} // namespace brackwater
