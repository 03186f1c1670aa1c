#pragma once

namespace brackwater {

/// How many processors this process may use, at least 1.
[[nodiscard]] int usableProcessors() noexcept;

/// The processor that the calling thread runs on.
[[nodiscard]] int currentProcessor() noexcept;
/// Moves the calling thread to another processor than this one, if it may use another. For new threads: some systems
/// leave a thread beside its creator for many milliseconds, although another processor is idle.
void leaveProcessor(int processor) noexcept;

} // namespace brackwater
