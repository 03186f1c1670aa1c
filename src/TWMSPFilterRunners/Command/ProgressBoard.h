#pragma once

#include "Platform/Values/ExportProgress.h"

#include <atomic>
#include <cstdint>
#include <memory>
#include <span>

namespace brackwater {

/// The progress of one worker, in memory shared with the command.
struct ProgressSlot {
    static constexpr std::uint32_t kNotKnown = ~std::uint32_t{0};

    std::atomic<std::uint32_t> phase;   ///< an ExportPhase
    std::atomic<std::uint32_t> percent; ///< of the phase, or kNotKnown
};

/// One slot per concurrent worker. Must be created before the workers.
class ProgressBoard {
public:
    /// Raises std::system_error if there is no memory.
    explicit ProgressBoard(std::size_t slots);

    [[nodiscard]] ProgressSlot& slot(std::size_t index) const { return _slots[index]; }

private:
    struct Unmap {
        std::size_t size;
        void operator()(void* memory) const noexcept;
    };
    std::unique_ptr<void, Unmap> _memory;
    std::span<ProgressSlot> _slots;
};

/// Writes the progress of an export to a slot.
class ProgressTeller : public ExportProgress {
public:
    explicit ProgressTeller(ProgressSlot& slot) : _slot(slot) {}

    void advance(ExportPhase phase, std::size_t done, std::size_t all) override {
        const auto percent = all == 0 ? ProgressSlot::kNotKnown : static_cast<std::uint32_t>(100 * done / all);
        _slot.percent.store(percent, std::memory_order_relaxed);
        _slot.phase.store(static_cast<std::uint32_t>(phase), std::memory_order_relaxed);
    }

private:
    ProgressSlot& _slot;
};

} // namespace brackwater
