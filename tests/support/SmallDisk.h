#pragma once

#include "support/TempFolder.h"

#include <cstddef>
#include <string>
#include <sys/resource.h>

namespace brackwater::test {

/// A folder of limited size during the lifetime of the object: its own file system if the process may mount one,
/// otherwise a limit on the size of every file that the process writes.
class SmallDisk {
public:
    explicit SmallDisk(std::size_t bytes);
    ~SmallDisk();
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    [[nodiscard]] std::string path(std::string_view entry) const { return _folder.path(entry); }

private:
    TempFolder _folder;
    bool _mounted;
    rlimit _limitBefore{};
    void (*_signalBefore)(int) = nullptr;
};

} // namespace brackwater::test
