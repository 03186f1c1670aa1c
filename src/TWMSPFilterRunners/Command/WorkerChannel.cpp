#include "TWMSPFilterRunners/Command/WorkerChannel.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdint>
#include <cstring>
#include <sys/socket.h>

namespace brackwater {

namespace {

constexpr char kComputedMark = '.'; // precedes the answer's size

/// A request as it is sent; the descriptor of the log goes with it.
struct RequestMessage {
    std::uint64_t job = 0;
    std::array<char, PATH_MAX> folder{}; ///< ends with NUL
};

/// Room for one descriptor that is passed to another process.
struct PassedDescriptor {
    alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(int))> bytes{};
};

msghdr headOf(iovec& content) {
    msghdr head{};
    head.msg_iov = &content;
    head.msg_iovlen = 1;
    return head;
}

void attach(int descriptor, PassedDescriptor& room, msghdr& head) {
    head.msg_control = room.bytes.data();
    head.msg_controllen = room.bytes.size();
    cmsghdr* const control = CMSG_FIRSTHDR(&head);
    control->cmsg_level = SOL_SOCKET;
    control->cmsg_type = SCM_RIGHTS;
    control->cmsg_len = CMSG_LEN(sizeof descriptor);
    std::memcpy(CMSG_DATA(control), &descriptor, sizeof descriptor);
}

FileDescriptor passedDescriptor(msghdr& head) {
    const cmsghdr* const control = CMSG_FIRSTHDR(&head);
    int descriptor = -1;
    if (control != nullptr && control->cmsg_level == SOL_SOCKET && control->cmsg_type == SCM_RIGHTS)
        std::memcpy(&descriptor, CMSG_DATA(control), sizeof descriptor);
    return FileDescriptor(descriptor);
}

void sendAll(int socket, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t sent = send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (sent < 0 && errno != EINTR)
            return; // the command has ended
        bytes.remove_prefix(sent < 0 ? 0 : static_cast<std::size_t>(sent));
    }
}

} // namespace

std::optional<std::string> WorkAnswer::whole() const {
    std::uint64_t size = 0;
    constexpr std::size_t begin = sizeof kComputedMark + sizeof size;
    if (_bytes.size() < begin)
        return std::nullopt;
    std::memcpy(&size, _bytes.data() + sizeof kComputedMark, sizeof size);
    if (_bytes.size() - begin < size)
        return std::nullopt;
    return _bytes.substr(begin);
}

WorkerChannelEnds makeWorkerChannel() {
    std::array<int, 2> ends{-1, -1};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0)
        return {};
    return {WorkerChannel(FileDescriptor(ends[0])), WorkerChannel(FileDescriptor(ends[1]))};
}

bool WorkerChannel::send(std::size_t job, const std::string& folder, int log) const {
    RequestMessage message{job, {}};
    if (folder.size() >= message.folder.size()) {
        errno = ENAMETOOLONG;
        return false;
    }
    std::ranges::copy(folder, message.folder.begin());
    iovec content{&message, sizeof message};
    msghdr head = headOf(content);
    PassedDescriptor passed;
    if (log >= 0)
        attach(log, passed, head);
    ssize_t sent = -1;
    do
        sent = sendmsg(_socket.get(), &head, MSG_NOSIGNAL);
    while (sent < 0 && errno == EINTR);
    return sent == static_cast<ssize_t>(sizeof message);
}

std::optional<WorkRequest> WorkerChannel::receive() const {
    RequestMessage message;
    iovec content{&message, sizeof message};
    msghdr head = headOf(content);
    PassedDescriptor passed;
    head.msg_control = passed.bytes.data();
    head.msg_controllen = passed.bytes.size();
    ssize_t got = -1;
    do
        got = recvmsg(_socket.get(), &head, MSG_WAITALL | MSG_CMSG_CLOEXEC);
    while (got < 0 && errno == EINTR);
    FileDescriptor log = passedDescriptor(head);
    if (got != static_cast<ssize_t>(sizeof message))
        return std::nullopt;
    return WorkRequest{message.job, message.folder.data(), std::move(log)};
}

void WorkerChannel::endRequests() const noexcept { shutdown(_socket.get(), SHUT_WR); }

void WorkerChannel::tellComputed() const { sendAll(_socket.get(), {&kComputedMark, sizeof kComputedMark}); }

void WorkerChannel::sendAnswer(const std::string& answer) const {
    const std::uint64_t size = answer.size();
    std::array<char, sizeof size> bytes;
    std::memcpy(bytes.data(), &size, sizeof size);
    sendAll(_socket.get(), {bytes.data(), bytes.size()});
    sendAll(_socket.get(), answer);
}

} // namespace brackwater
