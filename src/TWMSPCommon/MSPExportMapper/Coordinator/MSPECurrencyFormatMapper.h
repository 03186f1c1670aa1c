#pragma once

#include "TWMSPCommon/MSPExportMapper/Common/MSPEObjectMapperBase.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace brackwater {

/// The project's currency settings, derived from the sample of a formatted amount in the table of contents
/// ("$1,234.56").
class MSPECurrencyFormatMapper final : public MSPEObjectMapperBase {
public:
    explicit MSPECurrencyFormatMapper(MSPEMapper* mapper);

    /// Digits after the decimal point.
    [[nodiscard]] std::int64_t currencyDigits() const noexcept { return _currencyDigits; }
    [[nodiscard]] const std::string& currencySymbol() const noexcept { return _currencySymbol; }
    /// Three letters; empty if the symbol has no code.
    [[nodiscard]] const std::string& currencyCode() const noexcept { return _currencyCode; }
    /// 0 before the amount, 1 after it, 2 before with a space, 3 after with a space.
    [[nodiscard]] std::int64_t currencySymbolPosition() const noexcept { return _currencySymbolPosition; }

private:
    void readSample(std::string_view sample);
    void setSymbol(std::string_view symbol, std::int64_t position);

    std::int64_t _currencyDigits = 2;
    std::string _currencySymbol = "$";
    std::string _currencyCode = "USD";
    std::int64_t _currencySymbolPosition = 0;
};

} // namespace brackwater
