#pragma once

#include <cstdio>
#include <fcntl.h>
#include <string_view>

namespace brackwater {

/// Opens the descriptors 0 to 2 that were closed at the program's start, so that no other file becomes its standard
/// output or error. Every program must call it first.
inline void openStandardDescriptors() noexcept {
    for (int descriptor = 0; descriptor <= 2; ++descriptor) {
        if (fcntl(descriptor, F_GETFD) != -1)
            continue;
        // Opens the lowest free descriptor, which is this one. A folder, too, accepts and returns nothing.
        if (open("/dev/null", O_RDWR) == -1)
            static_cast<void>(open("/", O_RDONLY | O_DIRECTORY));
    }
}

/// If standard error fails, on a full disk or after its reader vanished, there is nowhere to report it.
inline void tellOnStandardError(std::string_view text) noexcept {
    static_cast<void>(std::fwrite(text.data(), 1, text.size(), stderr));
}

} // namespace brackwater
