#include "Platform/Values/Guid.h"

#include <fmt/format.h>

#include <cstddef>
#include <stdexcept>
#include <sys/random.h>

namespace brackwater {

namespace {

// Fetches random bytes for many GUIDs at once: a document needs several per task.
class RandomPool {
public:
    Guid::Bytes take() {
        if (_next + sizeof(Guid::Bytes) > _pool.size())
            refill();
        Guid::Bytes bytes{};
        for (std::size_t i = 0; i < bytes.size(); ++i)
            bytes[i] = _pool[_next + i];
        _next += bytes.size();
        return bytes;
    }

private:
    void refill() {
        std::size_t filled = 0;
        while (filled < _pool.size()) {
            const ssize_t got = getrandom(_pool.data() + filled, _pool.size() - filled, 0);
            if (got < 0) {
                if (errno == EINTR)
                    continue;
                throw std::runtime_error("The system has no random numbers.");
            }
            filled += static_cast<std::size_t>(got);
        }
        _next = 0;
    }

    std::array<std::uint8_t, 4096> _pool{};
    std::size_t _next = _pool.size();
};

} // namespace

Guid Guid::random() {
    static thread_local RandomPool pool;
    Bytes bytes = pool.take();
    bytes[6] = static_cast<std::uint8_t>((bytes[6] & 0x0F) | 0x40); // version 4: random
    bytes[8] = static_cast<std::uint8_t>((bytes[8] & 0x3F) | 0x80); // variant of RFC 4122
    return Guid(bytes);
}

std::string Guid::text() const {
    return fmt::format(
        "{:02x}{:02x}{:02x}{:02x}-{:02x}{:02x}-{:02x}{:02x}-{:02x}{:02x}-{:02x}{:02x}{:02x}{:02x}{:02x}{:02x}",
        _bytes[0], _bytes[1], _bytes[2], _bytes[3], _bytes[4], _bytes[5], _bytes[6], _bytes[7], _bytes[8], _bytes[9],
        _bytes[10], _bytes[11], _bytes[12], _bytes[13], _bytes[14], _bytes[15]);
}

} // namespace brackwater
