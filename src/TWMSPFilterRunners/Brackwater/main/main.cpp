#include "Platform/Log.h"
#include "TWMSPFilterRunners/Brackwater/BrackwaterRunner.h"

#include <csignal>
#include <string>
#include <vector>

#ifdef BRACKWATER_MIMALLOC
#include <mimalloc.h>
#endif

namespace {

// A large export fills hundreds of megabytes once and in order: with the system's large pages that takes a fraction of
// the page faults. Where the allocator's own environment variable for them is set, it decides.
void preferLargePages() {
#ifdef BRACKWATER_MIMALLOC
    mi_option_set_enabled_default(mi_option_large_os_pages, true);
#endif
}

} // namespace

int main(int argc, char** argv) {
    // A reader of the log that goes away must not end an export half way.
    static_cast<void>(std::signal(SIGPIPE, SIG_IGN));
    // Nor must an output beyond the limit on a file's size: its write fails, and the export ends like on a full disk.
    static_cast<void>(std::signal(SIGXFSZ, SIG_IGN));
    preferLargePages();
    const std::vector<std::string> arguments(argv, argv + argc);
    const int status = brackwater::BrackwaterRunner().run(arguments);
    brackwater::flushLog();
    return status;
}
