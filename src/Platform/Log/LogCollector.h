#pragma once

#include "Platform/Log/Log.h"

#include <cstddef>
#include <string>
#include <vector>

namespace brackwater {

/// Log lines that wait for their turn.
class CollectedLines {
public:
    /// Logs them on the calling thread.
    void log() const;

private:
    friend class LogCollector;

    std::string _text; ///< of all lines, without anything between them
    std::vector<std::size_t> _sizes;
};

/// Collects the log lines of its thread, for another thread to log them.
class LogCollector final : public LogSink {
public:
    /// `reader` is where the other thread's lines go, null for standard error: what it does not want is not collected.
    explicit LogCollector(const LogSink* reader) : _reader(reader) {}

    [[nodiscard]] bool wants(std::string_view beginning) const override {
        return _reader == nullptr || _reader->wants(beginning);
    }
    void receive(std::string_view text) override;
    [[nodiscard]] char* begin(std::size_t size) override;

    /// The lines since the last call.
    [[nodiscard]] CollectedLines take() noexcept;

private:
    const LogSink* _reader;
    CollectedLines _lines;
};

} // namespace brackwater
