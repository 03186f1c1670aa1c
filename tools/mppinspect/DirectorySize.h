#pragma once

#include <cstdint>
#include <functional>
#include <optional>

namespace brackwater::inspect {

/// Reads the 32-bit word at an offset of the file; nothing past its end.
using WordReader = std::function<std::optional<std::uint32_t>(std::uint64_t offset)>;

/// Bytes of a compound file's directory, as far as they are below the bound; nothing when it is larger, runs in a
/// circle or cannot be followed. The library reads a directory by recursion: a large one would overrun the stack.
[[nodiscard]] std::optional<std::uint64_t> directorySize(const WordReader& wordAt, std::uint64_t bound);

} // namespace brackwater::inspect
