#pragma once

#include <cstdint>

namespace brackwater {

/// What an export leaves to the next one of its process, and the output or the log shows. Whoever wants an export to be
/// as the first of its process assigns a new one before. The thread that exports has the one that counts; a helper
/// thread has its own.
struct ProcessState {
    std::uint64_t links = 0; ///< made so far; each is the ID of its link
    /// The next dated work week's number, in each layout.
    std::uint32_t workWeeks2007 = 21;
    std::uint32_t workWeeks2010 = 21;
    bool isZoneLogged = false;
};

[[nodiscard]] ProcessState& processState() noexcept;

} // namespace brackwater
