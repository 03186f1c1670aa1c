#include "MPPXMLDOMFilter/Container/CompoundFileLibrary.h"
#include "MPPXMLDOMFilter/Container/MPPFormatReader.h"
#include "support/CompoundFile.h"
#include "support/LogCapture.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <bzlib.h>
#include <filesystem>
#include <sys/resource.h>
#include <sys/stat.h>
#include <zlib.h>

namespace brackwater::test {
namespace {

/// Compresses the bytes `times` times.
Bytes gzip(const Bytes& bytes, int times = 1) {
    z_stream stream{};
    constexpr int kGzipHeader = 16;
    deflateInit2(&stream, Z_BEST_SPEED, Z_DEFLATED, MAX_WBITS + kGzipHeader, 8, Z_DEFAULT_STRATEGY);
    Bytes packed((bytes.size() / 100 + 1) * static_cast<std::size_t>(times) + bytes.size() + 100);
    stream.next_out = packed.data();
    stream.avail_out = static_cast<uInt>(packed.size());
    for (int i = 1; i <= times; ++i) {
        stream.next_in = const_cast<Bytef*>(bytes.data());
        stream.avail_in = static_cast<uInt>(bytes.size());
        deflate(&stream, i == times ? Z_FINISH : Z_NO_FLUSH);
    }
    packed.resize(stream.total_out);
    deflateEnd(&stream);
    return packed;
}

Bytes bzip2(Bytes bytes, int times = 1) {
    bz_stream stream{};
    BZ2_bzCompressInit(&stream, 9, 0, 0);
    Bytes packed((bytes.size() / 100 + 1) * static_cast<std::size_t>(times) + bytes.size() + 600);
    stream.next_out = reinterpret_cast<char*>(packed.data());
    stream.avail_out = static_cast<unsigned>(packed.size());
    for (int i = 1; i <= times; ++i) {
        stream.next_in = reinterpret_cast<char*>(bytes.data());
        stream.avail_in = static_cast<unsigned>(bytes.size());
        BZ2_bzCompress(&stream, i == times ? BZ_FINISH : BZ_RUN);
    }
    packed.resize(stream.total_out_lo32);
    BZ2_bzCompressEnd(&stream);
    return packed;
}

long peakKilobytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

class Packed : public testing::Test {
protected:
    bool opens(const std::string& name) {
        _root = std::make_unique<MPPFormatReader>(FileURL::fileURLWithPath(_folder.path(name), false));
        return _root->open();
    }
    bool opens(const Bytes& bytes) {
        writeFile(_folder.path("T.mpp"), bytes);
        return opens("T.mpp");
    }
    /// The contents of the stream "Data" of the open template.
    Bytes data() { return _root->createReaderForChildWithName("Data")->readAll().value(); }

    CompoundFileLibrary _library;
    TempFolder _folder;
    LogCapture _log;
    std::unique_ptr<MPPFormatReader> _root;
    Bytes _plain = bytesOfCompoundFile({stream("Data", patternBytes(200000))});
};

TEST_F(Packed, TemplatesOpenLikePlainOnes) {
    ASSERT_TRUE(opens(gzip(_plain)));
    EXPECT_EQ(data(), patternBytes(200000));
    ASSERT_TRUE(opens(bzip2(_plain)));
    EXPECT_EQ(data(), patternBytes(200000));
    ASSERT_TRUE(opens(gzip(bzip2(gzip(_plain)))));
    EXPECT_EQ(data(), patternBytes(200000));
}

TEST_F(Packed, NestedCompressionIsLimited) {
    Bytes bytes = _plain;
    for (int i = 0; i < 5; ++i)
        bytes = gzip(bytes);
    EXPECT_FALSE(opens(bytes));
}

TEST_F(Packed, GarbageIsRejected) {
    const auto cut = [](Bytes bytes, std::size_t size) {
        bytes.resize(size);
        return bytes;
    };
    for (const auto& packed : {gzip(_plain), bzip2(_plain)}) {
        for (const std::size_t size : {std::size_t{3}, std::size_t{4}, std::size_t{18}, packed.size() / 2})
            EXPECT_FALSE(opens(cut(packed, size))) << size;
        Bytes damaged = packed;
        for (std::size_t i = 20; i < damaged.size(); i += 7)
            damaged[i] ^= 0x55;
        EXPECT_FALSE(opens(damaged));
    }
    EXPECT_FALSE(opens(gzip(patternBytes(5000))));
    EXPECT_FALSE(opens(gzip({})));
    EXPECT_FALSE(opens(bzip2({})));
}

TEST_F(Packed, BombIsRejectedWithinLimitedMemory) {
    const Bytes zeros(std::size_t{1} << 20);
    const Bytes gzipped = gzip(zeros, 300);
    const Bytes bzipped = bzip2(zeros, 300);
    ASSERT_LT(bzipped.size(), 2000U);
    const long before = peakKilobytes();
    EXPECT_FALSE(opens(gzipped));
    EXPECT_FALSE(opens(bzipped));
    EXPECT_LT(peakKilobytes() - before, 500L << 10);
}

TEST_F(Packed, OnlyRegularFilesAreOpened) {
    mkfifo(_folder.path("Pipe.mpp").c_str(), 0600);
    EXPECT_FALSE(opens("Pipe.mpp")); // opening it would block until a writer opens it
    _folder.makeFolder("Folder.mpp");
    EXPECT_FALSE(opens("Folder.mpp"));
    std::filesystem::create_symlink("/dev/zero", _folder.path("Device.mpp"));
    EXPECT_FALSE(opens("Device.mpp"));
    std::filesystem::create_symlink("Loop.mpp", _folder.path("Loop.mpp"));
    EXPECT_FALSE(opens("Loop.mpp"));
    EXPECT_FALSE(opens(Bytes{}));
}

} // namespace
} // namespace brackwater::test
