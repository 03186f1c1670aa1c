#pragma once

#include "Platform/Date.h"
#include "Platform/TimeZone.h"

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace brackwater {

/// A short text as a key: its bytes in words, so that two are compared and hashed in a few steps.
class ShortTextKey {
public:
    static constexpr std::size_t kLongest = 31;

    /// `text` must not be longer than `kLongest`.
    explicit ShortTextKey(std::string_view text) noexcept {
        std::array<char, sizeof _words> bytes{};
        std::memcpy(bytes.data(), text.data(), text.size());
        bytes.back() = static_cast<char>(text.size());
        _words = std::bit_cast<Words>(bytes);
    }
    ShortTextKey() = default;

    [[nodiscard]] std::uint64_t hash() const noexcept {
        std::uint64_t hash = 0;
        for (const std::uint64_t word : _words)
            hash = (std::rotl(hash, 23) ^ word) * 0x9E3779B97F4A7C15U;
        return hash;
    }
    friend bool operator==(const ShortTextKey&, const ShortTextKey&) = default;

private:
    using Words = std::array<std::uint64_t, 4>;
    Words _words{};
};

/// The results of the last conversions in one time zone: documents tell the same instants again and again, and each
/// one passes through several forms. A result is kept until another key takes its place or the zone changes.
template <typename Key, typename Result>
class RecentResults {
public:
    /// The result for `key`, by `convert` where it is not known. Nothing is kept where `convert` raises.
    template <typename Convert>
    const Result& get(const TimeZone& zone, const Key& key, std::uint64_t hash, Convert convert) {
        if (_zone != &zone.rules())
            forgetAllBut(zone);
        Entry& entry = _entries[hash >> (64 - kIndexBits)];
        if (!entry.isFilled || !(entry.key == key)) {
            entry.isFilled = false;
            entry.result = convert();
            entry.key = key;
            entry.isFilled = true;
        }
        return entry.result;
    }

private:
    static constexpr int kIndexBits = 10;

    struct Entry {
        Key key{};
        Result result{};
        bool isFilled = false;
    };

    void forgetAllBut(const TimeZone& zone) {
        _kept = zone;
        _zone = &zone.rules();
        _entries.assign(std::size_t{1} << kIndexBits, Entry());
    }

    std::optional<TimeZone> _kept; // its rules stay alive, so that their address says which zone it is
    const TimeZone::Rules* _zone = nullptr;
    std::vector<Entry> _entries;
};

} // namespace brackwater
