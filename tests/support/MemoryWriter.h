#pragma once

#include "MPPXMLDOMFilter/Container/MPPFormatWriter.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace brackwater::test {

using Bytes = std::vector<std::uint8_t>;

/// What a MemoryWriter and its children have written, by path ("TBkndTask/Var2Data").
struct MemoryOutput {
    std::map<std::string, Bytes> streams;
    std::vector<std::string> created;       ///< streams and storages, in order of creation
    std::size_t calls = 0;                  ///< creations, writes and closes so far
    std::optional<std::size_t> failingCall; ///< index of the one call that fails, counted from 0
    int openStreams = 0;
    int mostOpenStreams = 0; ///< the library for real files allows one

    std::string failedPath; ///< of the stream whose call failed

    /// Counts a call for a stream or storage; false if it has to fail.
    bool nextCallSucceeds(const std::string& path) {
        if (calls++ != failingCall)
            return true;
        failedPath = path;
        return false;
    }
};

/// An in-memory sink instead of a compound file. Fails once, at the call set in the output.
class MemoryWriter : public MPPFormatWriter {
public:
    /// A storage, by default the root.
    explicit MemoryWriter(std::shared_ptr<MemoryOutput> output, std::string path = {}, bool isStream = false);
    ~MemoryWriter() override;

    bool open() override { return true; }
    [[nodiscard]] std::unique_ptr<MPPFormatWriter> createChildWithName(const std::string& name, bool isDir) override;
    bool writeBytes(std::span<const std::uint8_t> bytes) override;
    [[nodiscard]] std::string getName() const override;
    bool close() override;
    [[nodiscard]] std::string failureText() const override { return {}; }

private:
    void markClosed();

    std::shared_ptr<MemoryOutput> _output;
    std::string _path;
    bool _isStream;
    bool _closed = false;
};

} // namespace brackwater::test
