#pragma once

#include "Platform/Log/Log.h"

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <span>
#include <string>

namespace brackwater::fuzz {

/// Drops what is logged.
class SilentLog : public LogSink {
public:
    void receive(std::string_view) override {}
};

/// A folder of the process's own, in memory where the system has such a place; removed at exit.
class ScratchFolder {
public:
    ScratchFolder() {
        const char* base = std::filesystem::is_directory("/dev/shm") ? "/dev/shm" : "/tmp";
        _path = std::string(base) + "/brackwater-fuzz-XXXXXX";
        if (!mkdtemp(_path.data()))
            std::abort();
    }
    ~ScratchFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(_path, ignored);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    [[nodiscard]] std::string file(const std::string& name) const { return _path + "/" + name; }

private:
    std::string _path;
};

inline void writeFile(const std::string& path, std::span<const std::uint8_t> bytes) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): bytes as the stream's characters
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

} // namespace brackwater::fuzz
