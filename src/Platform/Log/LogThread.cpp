#include "Platform/Log/LogThread.h"

#include "Platform/Log/FatalSignals.h"
#include "Platform/Log/LogLines.h"
#include "Platform/Values/Processors.h"

#include <algorithm>
#include <cstring>

namespace brackwater {

bool LogThread::start() noexcept {
    if (usableProcessors() < 2)
        return false;
    // Signals go to the thread that exports.
    const SignalsHeldBack heldBack;
    const auto run = [](void* thread) -> void* {
        static_cast<LogThread*>(thread)->run();
        return nullptr;
    };
    _isRunning = pthread_create(&_thread, nullptr, run, this) == 0;
    return _isRunning;
}

void LogThread::append(std::string_view prefix, std::span<const std::string_view> pieces) noexcept {
    std::size_t size = prefix.size() + 1;
    for (const std::string_view piece : pieces)
        size += piece.size();
    if (size <= kLargestPart) {
        waitForRoom(size);
        put(prefix);
        for (const std::string_view piece : pieces)
            put(piece);
        put("\n");
    } else {
        putInParts(prefix);
        for (const std::string_view piece : pieces)
            putInParts(piece);
        putInParts("\n");
    }
    publishLine();
}

char* LogThread::begin(std::string_view prefix, std::size_t size) noexcept {
    _begun = prefix.size() + size + 1;
    const auto place = static_cast<std::size_t>(_putEnd % kCapacity);
    if (_begun > std::min(kLargestPart, kCapacity - place))
        return nullptr;
    waitForRoom(_begun);
    char* const line = _ring.data() + place;
    line[_begun - 1] = '\n';
    return std::copy(prefix.begin(), prefix.end(), line);
}

void LogThread::finish() noexcept {
    _putEnd += _begun;
    publishLine();
}

void LogThread::putInParts(std::string_view bytes) noexcept {
    while (!bytes.empty()) {
        const std::string_view part = bytes.substr(0, kLargestPart);
        waitForRoom(part.size());
        put(part);
        bytes.remove_prefix(part.size());
    }
}

// There is room for the bytes, perhaps on both sides of the ring's end.
void LogThread::put(std::string_view bytes) noexcept {
    const auto place = static_cast<std::size_t>(_putEnd % kCapacity);
    _putEnd += bytes.size();
    if (bytes.size() <= kCapacity - place) [[likely]] {
        std::memcpy(_ring.data() + place, bytes.data(), bytes.size());
        return;
    }
    const std::size_t toEnd = kCapacity - place;
    std::memcpy(_ring.data() + place, bytes.data(), toEnd);
    std::memcpy(_ring.data(), bytes.data() + toEnd, bytes.size() - toEnd);
}

void LogThread::publish() noexcept { _filled.store(_putEnd, std::memory_order_release); }

void LogThread::publishLine() noexcept {
    publish();
    if (_putEnd - _calledAt >= kCalledAfter)
        call();
}

void LogThread::waitForRoom(std::size_t size) noexcept {
    while (_roomEnd - _putEnd < size) {
        const std::uint64_t written = _written.load(std::memory_order_acquire);
        _roomEnd = written + kCapacity;
        if (_roomEnd - _putEnd >= size)
            break;
        publish();
        call();
        _written.wait(written);
    }
}

void LogThread::call() noexcept {
    _calledAt = _putEnd;
    ++_calls;
    _calls.notify_one();
}

void LogThread::flush() noexcept {
    const std::uint64_t end = _filled;
    call();
    for (std::uint64_t written = _written; written < end; written = _written)
        _written.wait(written);
}

void LogThread::end() noexcept {
    _isEnding = true;
    call();
    pthread_join(_thread, nullptr);
    _isRunning = false;
}

void LogThread::forget() noexcept {
    _isRunning = false;
    _filled = _putEnd;
    _written = _putEnd;
}

void LogThread::run() noexcept {
    std::uint32_t heard = 0;
    bool isEnding = false;
    while (!isEnding) {
        _calls.wait(heard);
        heard = _calls;
        isEnding = _isEnding;
        writeUntil(_filled.load(std::memory_order_acquire));
    }
}

// Each write ends at the ring's end at the latest, and makes room before the next one.
void LogThread::writeUntil(std::uint64_t end) noexcept {
    std::uint64_t written = _written.load(std::memory_order_relaxed);
    while (written < end) {
        const auto place = static_cast<std::size_t>(written % kCapacity);
        const std::size_t size = std::min({static_cast<std::size_t>(end - written), kCapacity - place, kCalledAfter});
        writeToStandardError({_ring.data() + place, size});
        written += size;
        _written.store(written, std::memory_order_release);
        _written.notify_all();
    }
}

} // namespace brackwater
