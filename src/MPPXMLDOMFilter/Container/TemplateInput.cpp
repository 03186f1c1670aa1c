#include "MPPXMLDOMFilter/Container/TemplateInput.h"

#include <gsf/gsf-input-gzip.h>
#include <gsf/gsf-input-memory.h>
#include <gsf/gsf-input-stdio.h>

#include <algorithm>
#include <array>
#include <bzlib.h>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <sys/stat.h>
#include <utility>
#include <vector>

namespace brackwater {

namespace {

/// Limit for unpacked templates. A few kilobytes can unpack to gigabytes; real templates have some megabytes.
constexpr std::size_t kLargestUnpacked = std::size_t{128} << 20;
/// Limit for nested compression. An archive can be crafted to unpack to itself.
constexpr int kMostWrappings = 4;
constexpr std::size_t kPiece = std::size_t{64} << 10;
/// Templates of up to this size are read at once: the library seeks often, and each time the system reads a page anew.
constexpr gsf_off_t kLargestReadAtOnce = gsf_off_t{4} << 20;

using Bytes = std::vector<std::uint8_t>;

bool isRegularFile(const std::string& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

bool startsWith(GsfInput* input, std::initializer_list<std::uint8_t> signature) {
    if (gsf_input_size(input) < static_cast<gsf_off_t>(signature.size()) || gsf_input_seek(input, 0, G_SEEK_SET))
        return false;
    const guint8* start = gsf_input_read(input, signature.size(), nullptr);
    const bool same = start != nullptr && std::equal(signature.begin(), signature.end(), start);
    return !gsf_input_seek(input, 0, G_SEEK_SET) && same;
}

GObjectPointer<GsfInput> inputOfBytes(const Bytes& bytes) {
    return GObjectPointer<GsfInput>(gsf_input_memory_new_clone(bytes.data(), static_cast<gsf_off_t>(bytes.size())));
}

/// The same input with its bytes in memory; itself if it is large or cannot be read at once.
GObjectPointer<GsfInput> readAtOnce(GObjectPointer<GsfInput> input) {
    const gsf_off_t size = gsf_input_size(input.get());
    if (size <= 0 || size > kLargestReadAtOnce)
        return input;
    Bytes bytes(static_cast<std::size_t>(size));
    const bool isRead = gsf_input_read(input.get(), bytes.size(), bytes.data()) != nullptr;
    GObjectPointer<GsfInput> inMemory = isRead ? inputOfBytes(bytes) : nullptr;
    if (!inMemory)
        return gsf_input_seek(input.get(), 0, G_SEEK_SET) ? nullptr : std::move(input);
    gsf_input_set_name(inMemory.get(), gsf_input_name(input.get()));
    return inMemory;
}

/// Reads to the end in chunks, without trusting any size.
std::optional<Bytes> readToEnd(GsfInput* input) {
    Bytes bytes;
    for (gsf_off_t left = gsf_input_remaining(input); left > 0; left = gsf_input_remaining(input)) {
        const std::size_t piece = std::min(kPiece, static_cast<std::size_t>(left));
        const guint8* read = gsf_input_read(input, piece, nullptr);
        if (read == nullptr || bytes.size() + piece > kLargestUnpacked)
            return std::nullopt;
        bytes.insert(bytes.end(), read, read + piece);
    }
    return bytes;
}

std::optional<Bytes> unpackGzip(GsfInput* packed) {
    const GObjectPointer<GsfInput> unpacked(gsf_input_gzip_new(packed, nullptr));
    return unpacked ? readToEnd(unpacked.get()) : std::nullopt;
}

/// The library's own decompression has no limit, so this code does it.
std::optional<Bytes> unpackBzip2(GsfInput* packed) {
    struct Unpacking {
        bz_stream stream{};
        bool started = BZ2_bzDecompressInit(&stream, 0, 0) == BZ_OK;
        ~Unpacking() {
            if (started)
                BZ2_bzDecompressEnd(&stream);
        }
    } unpacking;
    if (!unpacking.started)
        return std::nullopt;

    Bytes bytes;
    std::array<char, kPiece> out{};
    Bytes in;
    for (int state = BZ_OK; state != BZ_STREAM_END;) {
        bz_stream& stream = unpacking.stream;
        if (stream.avail_in == 0 && gsf_input_remaining(packed) > 0) {
            in.resize(std::min(kPiece, static_cast<std::size_t>(gsf_input_remaining(packed))));
            if (gsf_input_read(packed, in.size(), in.data()) == nullptr)
                return std::nullopt;
            stream.next_in = reinterpret_cast<char*>(in.data());
            stream.avail_in = static_cast<unsigned>(in.size());
        }
        stream.next_out = out.data();
        stream.avail_out = static_cast<unsigned>(out.size());
        const unsigned before = stream.avail_in;
        state = BZ2_bzDecompress(&stream);
        const std::size_t made = out.size() - stream.avail_out;
        const bool stuck = state == BZ_OK && made == 0 && before == stream.avail_in;
        if ((state != BZ_OK && state != BZ_STREAM_END) || stuck || bytes.size() + made > kLargestUnpacked)
            return std::nullopt;
        bytes.insert(bytes.end(), out.begin(), out.begin() + static_cast<std::ptrdiff_t>(made));
    }
    return bytes;
}

} // namespace

GObjectPointer<GsfInput> openTemplateInput(const std::string& path) {
    if (!isRegularFile(path))
        return nullptr;
    GObjectPointer<GsfInput> input(gsf_input_stdio_new(path.c_str(), nullptr));
    for (int wrappings = 0; input; ++wrappings) {
        const bool isGzip = startsWith(input.get(), {0x1F, 0x8B});
        const bool isBzip2 = startsWith(input.get(), {'B', 'Z', 'h'});
        if (!isGzip && !isBzip2)
            return wrappings == 0 ? readAtOnce(std::move(input)) : std::move(input);
        if (wrappings == kMostWrappings)
            return nullptr;
        const auto unpacked = isGzip ? unpackGzip(input.get()) : unpackBzip2(input.get());
        input = unpacked ? inputOfBytes(*unpacked) : nullptr;
    }
    return nullptr;
}

} // namespace brackwater
