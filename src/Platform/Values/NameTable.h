#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace brackwater {

/// A few names, each with its index, found by perfect hashing: the compiler looks for a multiplier that sends each name
/// to its own slot.
template <std::size_t Size>
class NameTable {
public:
    // If `key` cannot distinguish two names, there is no multiplier and the table does not compile.
    consteval explicit NameTable(const std::array<std::string_view, Size>& names) : _names(names) {
        while (!placeNames())
            _multiplier = _multiplier * 6364136223846793005U + 1442695040888963407U;
    }

    [[nodiscard]] constexpr std::size_t size() const noexcept { return Size; }
    [[nodiscard]] constexpr std::string_view operator[](std::size_t index) const noexcept { return _names[index]; }

    /// The name's index; `Size` for any other name.
    [[nodiscard]] constexpr std::size_t find(std::string_view name) const noexcept {
        const std::uint8_t index = _slots[slot(name)];
        return index < Size && _names[index] == name ? index : Size;
    }

private:
    static constexpr std::size_t kSlotBits = Size <= 8 ? 5 : 7;
    static constexpr std::uint8_t kEmpty = 0xFF;
    static_assert(Size <= 32);

    /// Length, first and last four characters.
    static constexpr std::uint64_t key(std::string_view name) noexcept {
        std::uint64_t key = name.size();
        if (!name.empty())
            key = key << 8 | static_cast<std::uint8_t>(name.front());
        const std::string_view tail = name.size() > 4 ? name.substr(name.size() - 4) : name;
        for (const char character : tail)
            key = key << 8 | static_cast<std::uint8_t>(character);
        return key;
    }
    constexpr std::size_t slot(std::string_view name) const noexcept {
        return static_cast<std::size_t>(key(name) * _multiplier >> (64 - kSlotBits));
    }
    /// False if two names fall into one slot.
    consteval bool placeNames() {
        _slots.fill(kEmpty);
        for (std::size_t index = 0; index < Size; ++index) {
            std::uint8_t& target = _slots[slot(_names[index])];
            if (target != kEmpty)
                return false;
            target = static_cast<std::uint8_t>(index);
        }
        return true;
    }

    std::array<std::string_view, Size> _names;
    std::uint64_t _multiplier = 0x9E3779B97F4A7C15U;
    std::array<std::uint8_t, std::size_t{1} << kSlotBits> _slots{};
};

} // namespace brackwater
