#include "Platform/Log.h"
#include "TWMSPFilterRunners/Brackwater/BrackwaterRunner.h"

#include <csignal>
#include <malloc.h>
#include <string>
#include <vector>

namespace {

// An export fills memory in one phase and frees it in the next, where it is filled again. Memory that goes back to the
// system in between has to be asked for, and cleared, once more: a twentieth of the time of a large export.
void keepFreedMemory() {
    constexpr int kStep = 64 << 20;
    constexpr int kNever = 2'000'000'000;
    mallopt(M_TOP_PAD, kStep);
    mallopt(M_TRIM_THRESHOLD, kNever);
    mallopt(M_MMAP_THRESHOLD, kNever);
}

} // namespace

int main(int argc, char** argv) {
    // A reader of the log that goes away must not end an export half way.
    static_cast<void>(std::signal(SIGPIPE, SIG_IGN));
    // Nor must an output beyond the limit on a file's size: its write fails, and the export ends like on a full disk.
    static_cast<void>(std::signal(SIGXFSZ, SIG_IGN));
    keepFreedMemory();
    const std::vector<std::string> arguments(argv, argv + argc);
    const int status = brackwater::BrackwaterRunner().run(arguments);
    brackwater::flushLog();
    return status;
}
