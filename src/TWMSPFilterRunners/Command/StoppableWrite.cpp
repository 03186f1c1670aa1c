#include "TWMSPFilterRunners/Command/StoppableWrite.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <poll.h>
#include <unistd.h>

namespace brackwater {

bool writeUnlessStopped(int descriptor, std::string_view bytes, int stopDescriptor) {
    while (!bytes.empty()) {
        std::array<pollfd, 2> waiting = {{{descriptor, POLLOUT, 0}, {stopDescriptor, POLLIN, 0}}};
        if (poll(waiting.data(), waiting.size(), -1) < 0 && errno != EINTR)
            return false;
        if (waiting[0].revents == 0) {
            if (waiting[1].revents != 0)
                return false;
            continue;
        }
        // A pipe that is ready takes this much without waiting.
        const ssize_t written = write(descriptor, bytes.data(), std::min<std::size_t>(bytes.size(), PIPE_BUF));
        if (written < 0 && errno != EINTR && errno != EAGAIN)
            return false;
        bytes.remove_prefix(written < 0 ? 0 : static_cast<std::size_t>(written));
    }
    return true;
}

} // namespace brackwater
