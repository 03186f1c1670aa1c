#pragma once

#include <unistd.h>
#include <utility>

namespace brackwater {

/// Owns an open file descriptor and closes it in the destructor.
class FileDescriptor {
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int descriptor) noexcept : _descriptor(descriptor) {}
    FileDescriptor(FileDescriptor&& other) noexcept : _descriptor(std::exchange(other._descriptor, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        std::swap(_descriptor, other._descriptor);
        return *this;
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor() { close(); }

    [[nodiscard]] int get() const noexcept { return _descriptor; }
    explicit operator bool() const noexcept { return _descriptor >= 0; }
    /// False if the last written data did not reach the file.
    bool close() noexcept { return _descriptor < 0 || ::close(std::exchange(_descriptor, -1)) == 0; }

private:
    int _descriptor = -1;
};

} // namespace brackwater
