#include "support/SmallDisk.h"

#include <csignal>
#include <sys/mount.h>

namespace brackwater::test {

SmallDisk::SmallDisk(std::size_t bytes)
    : _mounted(mount("tmpfs", _folder.path().c_str(), "tmpfs", 0, ("size=" + std::to_string(bytes)).c_str()) == 0) {
    if (_mounted)
        return;
    // A write beyond the limit must fail, not end the process.
    _signalBefore = std::signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &_limitBefore);
    const rlimit limit{bytes, _limitBefore.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
}

SmallDisk::~SmallDisk() {
    if (_mounted) {
        umount(_folder.path().c_str());
        return;
    }
    setrlimit(RLIMIT_FSIZE, &_limitBefore);
    std::signal(SIGXFSZ, _signalBefore);
}

} // namespace brackwater::test
