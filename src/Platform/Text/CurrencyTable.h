#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace brackwater {

/// The ISO code of the currency that the machine's locales write with this symbol ("€" gives "EUR"). A symbol that
/// stands for several currencies has a code only where one of them is settled ("$" gives "USD"). The table is built
/// once, at the first question, in a few milliseconds.
[[nodiscard]] std::optional<std::string> currencyCodeForSymbol(std::string_view symbol);

} // namespace brackwater
