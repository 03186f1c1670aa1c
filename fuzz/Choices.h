#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace brackwater::fuzz {

/// Choices that the bytes of an input make, one byte each; once they are used up, the first of what there is to choose.
class Choices {
public:
    explicit Choices(std::span<const std::uint8_t> bytes) : _bytes(bytes) {}

    /// From `least` to `most`, of at most 256 numbers.
    template <typename Number>
    Number between(Number least, Number most) {
        return least + static_cast<Number>(next()) % (most - least + 1);
    }
    bool either() { return next() % 2 != 0; }

private:
    std::uint8_t next() {
        if (_bytes.empty())
            return 0;
        const std::uint8_t byte = _bytes.front();
        _bytes = _bytes.subspan(1);
        return byte;
    }

    std::span<const std::uint8_t> _bytes;
};

} // namespace brackwater::fuzz
