#pragma once

#include "Platform/Files/NumberedPath.h"
#include "Platform/Log/FatalSignals.h"

#include <cstdio>
#include <memory>
#include <optional>
#include <string>

namespace brackwater {

/// The file that an output is written into before it is moved into place: ".gsf-save-XXXXXX" beside the destination,
/// six characters by chance. It is removed with the object or by a signal that ends the process, unless it was moved.
class TemporaryOutput {
public:
    /// Makes the file; null where it cannot be made, with `fault` telling why.
    [[nodiscard]] static std::unique_ptr<TemporaryOutput> beside(const std::string& destination, std::string& fault);
    ~TemporaryOutput();
    TemporaryOutput(const TemporaryOutput&) = delete;
    TemporaryOutput& operator=(const TemporaryOutput&) = delete;

    /// Opens the file as a stream, which the caller closes; null on failure.
    [[nodiscard]] std::FILE* openStream(std::string& fault);
    /// Moves the file to its destination, or, where something stands there, even a link that leads nowhere, to the next
    /// of its names that is free. Nothing is ever replaced. False with `fault` telling why.
    [[nodiscard]] bool moveTo(NumberedPath& destination, std::string& fault);

private:
    TemporaryOutput() = default;

    std::optional<FileRemovedAtSignal> _file;
    int _descriptor = -1; ///< until the stream has it
    bool _moved = false;
};

} // namespace brackwater
