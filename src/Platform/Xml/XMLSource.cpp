#include "Platform/Xml/XMLSource.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace brackwater {

namespace {

class FileSource final : public XMLSource {
public:
    explicit FileSource(std::string path) : _path(std::move(path)) {}
    ~FileSource() override { closeFile(); }
    FileSource(const FileSource&) = delete;
    FileSource& operator=(const FileSource&) = delete;

    bool open(std::string& fault) override {
        closeFile();
        // Without waiting: opening a pipe would hang until somebody writes to it.
        _file = ::open(_path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
        struct stat status {};
        if (_file < 0 || fstat(_file, &status) != 0) {
            fault = std::strerror(errno);
            return false;
        }
        if (!S_ISREG(status.st_mode)) {
            fault = "it is not a regular file";
            return false;
        }
        if (static_cast<std::uintmax_t>(status.st_size) > kLargestText) {
            fault = "it is larger than 2 GB";
            return false;
        }
        _remaining = static_cast<std::size_t>(status.st_size);
        return true;
    }

    // What the file grows by meanwhile is left out, and one that is cut ends where it was cut.
    std::optional<std::size_t> read(std::span<char> bytes, std::string& fault) override {
        const std::size_t wanted = std::min(bytes.size(), _remaining);
        std::size_t filled = 0;
        while (filled < wanted) {
            const ssize_t got = ::read(_file, bytes.data() + filled, wanted - filled);
            if (got < 0 && errno == EINTR)
                continue;
            if (got < 0) {
                fault = std::strerror(errno);
                return std::nullopt;
            }
            if (got == 0) {
                _remaining = filled;
                break;
            }
            filled += static_cast<std::size_t>(got);
        }
        _remaining -= filled;
        return filled;
    }

    [[nodiscard]] std::size_t remaining() const noexcept override { return _remaining; }

private:
    void closeFile() {
        if (_file >= 0)
            close(_file);
        _file = -1;
    }

    std::string _path;
    int _file = -1;
    std::size_t _remaining = 0;
};

class TextSource final : public XMLSource {
public:
    explicit TextSource(std::string_view text) : _text(text) {}

    bool open(std::string& fault) override {
        if (_text.size() > kLargestText) {
            fault = "it is larger than 2 GB";
            return false;
        }
        _rest = _text;
        return true;
    }

    std::optional<std::size_t> read(std::span<char> bytes, std::string& /*fault*/) override {
        const std::size_t size = _rest.copy(bytes.data(), bytes.size());
        _rest.remove_prefix(size);
        return size;
    }

    [[nodiscard]] std::size_t remaining() const noexcept override { return _rest.size(); }

private:
    std::string_view _text;
    std::string_view _rest;
};

} // namespace

std::unique_ptr<XMLSource> XMLSource::ofFile(const std::string& path) { return std::make_unique<FileSource>(path); }

std::unique_ptr<XMLSource> XMLSource::ofText(std::string_view text) { return std::make_unique<TextSource>(text); }

} // namespace brackwater
