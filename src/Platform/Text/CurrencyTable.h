#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace brackwater {

/// The ISO code of the currency that the machine's locales write with this symbol ("€" gives "EUR"). A symbol of
/// several currencies has a code only if one is preferred ("$" gives "USD"). The first call builds the table, in a few
/// milliseconds.
[[nodiscard]] std::optional<std::string> currencyCodeForSymbol(std::string_view symbol);

} // namespace brackwater
