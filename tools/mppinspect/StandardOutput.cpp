#include "StandardOutput.h"

#include <cerrno>
#include <cstdio>
#include <system_error>
#include <unistd.h>

namespace brackwater::inspect {

namespace {

[[noreturn]] void fail() {
    throw std::system_error(errno, std::generic_category(), "cannot write the whole of the output");
}

} // namespace

void StandardOutput::write(std::string_view text) {
    if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size())
        fail();
}

void StandardOutput::close() {
    if (std::fflush(stdout) != 0 || ::close(STDOUT_FILENO) != 0)
        fail();
}

} // namespace brackwater::inspect
