#pragma once

#include <cstdio>
#include <fcntl.h>
#include <string_view>

namespace brackwater {

/// Opens those of the descriptors 0 to 2 that the program was started without, so that no file of its own becomes its
/// standard output or error. Every program calls it first of all.
inline void openStandardDescriptors() noexcept {
    for (int descriptor = 0; descriptor <= 2; ++descriptor) {
        if (fcntl(descriptor, F_GETFD) != -1)
            continue;
        // The lowest free descriptor is taken, which is this one. A folder gives and takes nothing either.
        if (open("/dev/null", O_RDWR) == -1)
            static_cast<void>(open("/", O_RDONLY | O_DIRECTORY));
    }
}

/// Where standard error takes nothing, a full disk or a reader that went away, there is nowhere left to tell it.
inline void tellOnStandardError(std::string_view text) noexcept {
    static_cast<void>(std::fwrite(text.data(), 1, text.size(), stderr));
}

} // namespace brackwater
