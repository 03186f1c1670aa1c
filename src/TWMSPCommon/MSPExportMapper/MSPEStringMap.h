#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace brackwater {

/// A hash of texts that answers for any kind of text, so that a look-up makes no copy.
struct MSPEStringHash {
    using is_transparent = void;
    [[nodiscard]] std::size_t operator()(std::string_view text) const noexcept {
        return std::hash<std::string_view>{}(text);
    }
};

/// A hash table keyed by texts that it owns.
template <typename Value>
using MSPEStringMap = std::unordered_map<std::string, Value, MSPEStringHash, std::equal_to<>>;

} // namespace brackwater
