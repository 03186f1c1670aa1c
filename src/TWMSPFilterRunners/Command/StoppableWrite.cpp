#include "TWMSPFilterRunners/Command/StoppableWrite.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <poll.h>
#include <unistd.h>

namespace brackwater {

bool writeUnlessStopped(int descriptor, std::string_view bytes, const StopRequests* requests) {
    constexpr int noDescriptor = -1, forEver = -1;
    const int requestDescriptor = requests == nullptr ? noDescriptor : requests->descriptor();
    while (!bytes.empty()) {
        std::array<pollfd, 2> waiting = {{{descriptor, POLLOUT, 0}, {requestDescriptor, POLLIN, 0}}};
        const int got = poll(waiting.data(), waiting.size(), requests == nullptr ? forEver : requests->patience());
        if (got == 0 || (got < 0 && errno != EINTR))
            return false;
        if (waiting[0].revents == 0) {
            if (waiting[1].revents != 0)
                return false;
            continue;
        }
        // A ready pipe accepts this much without blocking.
        const ssize_t written = write(descriptor, bytes.data(), std::min<std::size_t>(bytes.size(), PIPE_BUF));
        if (written < 0 && errno != EINTR && errno != EAGAIN)
            return false;
        bytes.remove_prefix(written < 0 ? 0 : static_cast<std::size_t>(written));
    }
    return true;
}

} // namespace brackwater
