#include "PageFile.h"

#include <fmt/format.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace brackwater::inspect {

namespace {

namespace fs = std::filesystem;

constexpr std::array kEndings{SIGHUP, SIGINT, SIGTERM};
constexpr std::string_view kMark = "<!-- a page of mppinspect -->\n";

bool isOwnPage(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::array<char, kMark.size()> end{};
    return file.seekg(-static_cast<std::streamoff>(end.size()), std::ios::end) && file.read(end.data(), end.size()) &&
           std::string_view(end.data(), end.size()) == kMark;
}

mode_t usualMode() {
    const mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}

} // namespace

PageFile::SignalsHeld::SignalsHeld() {
    sigemptyset(&_held);
    for (const int signal : kEndings) {
        struct sigaction action {};
        if (sigaction(signal, nullptr, &action) == 0 && action.sa_handler != SIG_IGN)
            sigaddset(&_held, signal);
    }
    pthread_sigmask(SIG_BLOCK, &_held, &_before);
}

PageFile::SignalsHeld::~SignalsHeld() { pthread_sigmask(SIG_SETMASK, &_before, nullptr); }

void PageFile::SignalsHeld::throwIfCame() const {
    sigset_t waiting{};
    sigpending(&waiting);
    for (const int signal : kEndings)
        if (sigismember(&waiting, signal) == 1 && sigismember(&_held, signal) == 1)
            throw std::runtime_error("interrupted");
}

PageFile::PageFile(const std::string& target, const std::string& input, bool force) : _target(target) {
    std::error_code error;
    if (fs::is_symlink(_target, error)) {
        _target = fs::canonical(_target, error);
        if (error)
            throw std::runtime_error(fmt::format("'{}' is a link that leads nowhere", target));
    }
    struct stat status {};
    _replaces = stat(_target.c_str(), &status) == 0;
    if (_replaces && !S_ISREG(status.st_mode))
        throw std::runtime_error(fmt::format("'{}' is no regular file: '-' stands for standard output", target));
    if (_replaces && fs::equivalent(_target, input, error))
        throw std::runtime_error(fmt::format("'{}' is the project file itself", target));
    if (_replaces && !force && !isOwnPage(_target))
        throw std::runtime_error(fmt::format("'{}' exists and is no page of mppinspect: --force replaces it", target));

    const fs::path folder = fs::path(_target).parent_path();
    _temporary = (folder / ".mppinspect-XXXXXX").string();
    const int descriptor = mkostemp(_temporary.data(), O_CLOEXEC);
    if (descriptor == -1) {
        _temporary.clear();
        fail(errno);
    }
    if (fchmod(descriptor, _replaces ? status.st_mode & 07777 : usualMode()) == 0)
        _file.reset(fdopen(descriptor, "wb"));
    if (!_file) {
        const int reason = errno;
        ::close(descriptor);
        unlink(_temporary.c_str());
        fail(reason);
    }
}

PageFile::~PageFile() {
    if (!_temporary.empty())
        unlink(_temporary.c_str());
}

void PageFile::fail(int error) const {
    throw std::system_error(error, std::generic_category(), fmt::format("cannot write '{}'", _target));
}

void PageFile::write(std::string_view text) {
    _signals.throwIfCame();
    if (std::fwrite(text.data(), 1, text.size(), _file.get()) != text.size())
        fail(errno);
}

void PageFile::publish() {
    write(kMark);
    if (std::fflush(_file.get()) != 0 || fsync(fileno(_file.get())) != 0 || std::fclose(_file.release()) != 0)
        fail(errno);
    moveIntoPlace();
    _temporary.clear();
}

// A file that came to a free name meanwhile is not replaced.
void PageFile::moveIntoPlace() {
    if (!_replaces) {
        if (renameat2(AT_FDCWD, _temporary.c_str(), AT_FDCWD, _target.c_str(), RENAME_NOREPLACE) == 0)
            return;
        if (errno != EINVAL && errno != ENOSYS)
            fail(errno);
        // The file system lacks this kind of move: a second name is taken or not, and the first one goes.
        if (link(_temporary.c_str(), _target.c_str()) == 0) {
            unlink(_temporary.c_str());
            return;
        }
        fail(errno);
    }
    if (rename(_temporary.c_str(), _target.c_str()) != 0)
        fail(errno);
}

} // namespace brackwater::inspect
