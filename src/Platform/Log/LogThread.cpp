#include "Platform/Log/LogThread.h"

#include "Platform/Log/FatalSignals.h"
#include "Platform/Log/LogLines.h"
#include "Platform/Values/Processors.h"

#include <algorithm>
#include <cstring>

namespace brackwater {

namespace {

using Head = std::uint32_t;
constexpr Head kKindBits = 2;
constexpr Head kKindMask = (1U << kKindBits) - 1;

} // namespace

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

void LogThread::setPrefix(std::string_view prefix) noexcept {
    waitForRoom(sizeof(Head) + prefix.size());
    putHead(Kind::Prefix, prefix.size());
    put(prefix);
}

void LogThread::append(std::span<const std::string_view> pieces) noexcept {
    std::size_t size = 0;
    for (const std::string_view piece : pieces)
        size += piece.size();
    if (size <= kLargestPart) {
        putMessage(pieces, size);
    } else {
        for (const std::string_view piece : pieces)
            putLargePiece(piece);
        putMessage({}, 0);
    }
    publish();
    if (_putEnd - _calledAt >= kCalledAfter)
        call();
}

void LogThread::putMessage(std::span<const std::string_view> pieces, std::size_t size) noexcept {
    waitForRoom(sizeof(Head) + size);
    putHead(Kind::LastPart, size);
    for (const std::string_view piece : pieces)
        put(piece);
}

void LogThread::putLargePiece(std::string_view piece) noexcept {
    while (!piece.empty()) {
        const std::string_view part = piece.substr(0, kLargestPart);
        waitForRoom(sizeof(Head) + part.size());
        putHead(Kind::Part, part.size());
        put(part);
        piece.remove_prefix(part.size());
    }
}

void LogThread::putHead(Kind kind, std::size_t size) noexcept {
    const Head head = static_cast<Head>(size) << kKindBits | static_cast<Head>(kind);
    std::array<char, sizeof head> bytes;
    std::memcpy(bytes.data(), &head, sizeof head);
    put({bytes.data(), bytes.size()});
}

// There is room for the bytes, perhaps on both sides of the ring's end.
void LogThread::put(std::string_view bytes) noexcept {
    const auto place = static_cast<std::size_t>(_putEnd % kCapacity);
    const std::size_t toEnd = std::min(bytes.size(), kCapacity - place);
    std::memcpy(_ring.data() + place, bytes.data(), toEnd);
    if (toEnd < bytes.size())
        std::memcpy(_ring.data(), bytes.data() + toEnd, bytes.size() - toEnd);
    _putEnd += bytes.size();
}

void LogThread::publish() noexcept { _filled.store(_putEnd, std::memory_order_release); }

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

void LogThread::writeUntil(std::uint64_t end) noexcept {
    while (_taken < end) {
        _linesEnd = _lines.data();
        const char* const lastBegin = _lines.data() + _lines.size() - (_prefix.size() + kLargestPart + 1);
        while (_taken < end && _linesEnd <= lastBegin)
            takeRecord();
        writeToStandardError({_lines.data(), static_cast<std::size_t>(_linesEnd - _lines.data())});
        _written.store(_taken, std::memory_order_release);
        _written.notify_all();
    }
}

void LogThread::takeRecord() noexcept {
    std::array<char, sizeof(Head)> bytes;
    take(bytes.data(), bytes.size());
    Head head = 0;
    std::memcpy(&head, bytes.data(), sizeof head);
    const auto kind = static_cast<Kind>(head & kKindMask);
    const std::size_t size = head >> kKindBits;
    if (kind == Kind::Prefix) {
        take(_prefix.data(), size);
        _prefixSize = size;
        return;
    }
    if (!_isInLine)
        _linesEnd = std::copy_n(_prefix.data(), _prefixSize, _linesEnd);
    _linesEnd = take(_linesEnd, size);
    _isInLine = kind == Kind::Part;
    if (!_isInLine)
        *_linesEnd++ = '\n';
}

char* LogThread::take(char* to, std::size_t size) noexcept {
    const auto place = static_cast<std::size_t>(_taken % kCapacity);
    const std::size_t toEnd = std::min(size, kCapacity - place);
    to = std::copy_n(_ring.data() + place, toEnd, to);
    to = std::copy_n(_ring.data(), size - toEnd, to);
    _taken += size;
    return to;
}

} // namespace brackwater
