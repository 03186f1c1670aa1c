#include "MPPXMLDOMFilter/Container/SinkTemporaryFile.h"

#include <filesystem>
#include <string_view>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace brackwater {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kOpenFiles = "/proc/self/fd";
constexpr std::string_view kNameStart = ".gsf-save-";

} // namespace

SinkTemporaryFile::SinkTemporaryFile(std::string path, dev_t device, ino_t inode)
    : _file(std::move(path)), _device(device), _inode(inode) {}

std::unique_ptr<SinkTemporaryFile> SinkTemporaryFile::ofNewSink() {
    std::error_code fault;
    for (const auto& openFile : fs::directory_iterator(kOpenFiles, fault)) {
        const fs::path path = fs::read_symlink(openFile.path(), fault);
        struct stat status {};
        // Nothing has been written yet, and no other sink of this process has it.
        if (path.filename().native().starts_with(kNameStart) && stat(path.c_str(), &status) == 0 &&
            status.st_size == 0 && !FileRemovedAtSignal::isOneOfThem(path.native()))
            return std::unique_ptr<SinkTemporaryFile>(
                new SinkTemporaryFile(path.native(), status.st_dev, status.st_ino));
    }
    return nullptr;
}

void SinkTemporaryFile::remove() const {
    struct stat status {};
    if (lstat(_file.path().c_str(), &status) == 0 && status.st_dev == _device && status.st_ino == _inode)
        unlink(_file.path().c_str());
}

} // namespace brackwater
