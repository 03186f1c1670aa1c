#pragma once

#include "Platform/Files/NumberedPath.h"
#include "Platform/Log/FatalSignals.h"

#include <cstdio>
#include <memory>
#include <optional>
#include <string>

namespace brackwater {

/// The temporary file of an output: ".gsf-save-XXXXXX" beside the destination, with six random characters. Unless it
/// was moved, it is removed with the object or by a signal that ends the process.
class TemporaryOutput {
public:
    /// Creates the file; null, with the reason in `fault`, on failure.
    [[nodiscard]] static std::unique_ptr<TemporaryOutput> beside(const std::string& destination, std::string& fault);
    ~TemporaryOutput();
    TemporaryOutput(const TemporaryOutput&) = delete;
    TemporaryOutput& operator=(const TemporaryOutput&) = delete;

    /// Opens the file as a stream, which the caller closes; null on failure.
    [[nodiscard]] std::FILE* openStream(std::string& fault);
    /// Moves the file to its destination or, if that exists, even as a dangling link, to the next free name. Never
    /// replaces anything. False, with the reason in `fault`, on failure.
    [[nodiscard]] bool moveTo(NumberedPath& destination, std::string& fault);

private:
    TemporaryOutput() = default;

    std::optional<FileRemovedAtSignal> _file;
    int _descriptor = -1; ///< until the stream owns it
    bool _moved = false;
};

} // namespace brackwater
