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
    std::vector<std::string> created;       ///< streams and storages, in the order of their creation
    std::size_t calls = 0;                  ///< creations, writes and closes asked for so far
    std::optional<std::size_t> failingCall; ///< the call, counted from 0, that fails, and no other
    int openStreams = 0;
    int mostOpenStreams = 0; ///< the library that writes real files bears one

    std::string failedPath; ///< of the stream whose call failed

    /// Counts a call that concerns a stream or storage; false for the one that is to fail.
    bool nextCallSucceeds(const std::string& path) {
        if (calls++ != failingCall)
            return true;
        failedPath = path;
        return false;
    }
};

/// A sink in memory in place of a compound file. Fails once at a call that the output names.
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
