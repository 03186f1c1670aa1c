#include "MPPXMLDOMFilter/Container/CompoundFileLibrary.h"
#include "MPPXMLDOMFilter/Container/MPPFormatReader.h"
#include "MPPXMLDOMFilter/Container/MPPTemplateFormat.h"
#include "support/ByteImage.h"
#include "support/CompoundFile.h"
#include "support/LogCapture.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace brackwater::test {
namespace {

constexpr std::size_t kSector = 512;

void put32(Bytes& bytes, std::size_t offset, std::uint32_t value) {
    for (std::size_t i = 0; i < 4; ++i)
        bytes.at(offset + i) = static_cast<std::uint8_t>(value >> (8 * i) & 0xFF);
}

/// Reads the whole tree, as a walk would, and counts the bytes.
std::size_t readTree(const MPPFormatReader& node) {
    std::size_t total = 0;
    for (std::int32_t i = 0; i < node.numberOfChildren(); ++i) {
        const auto child = node.createReaderForChildAtIndex(i);
        if (!child)
            continue;
        if (child->isDirectory())
            total += readTree(*child);
        else if (const auto bytes = child->readAll())
            total += bytes->size();
    }
    return total;
}

class HostileTemplates : public testing::Test {
protected:
    /// Opens and reads these bytes as a template; no stream may be longer than `bytes`.
    bool survives(const Bytes& bytes) {
        writeFile(_folder.path("T.mpp"), bytes);
        const auto url = FileURL::fileURLWithPath(_folder.path("T.mpp"), false);
        static_cast<void>(formatVersionOfTemplateAtUrl(url));
        MPPFormatReader root(url);
        if (!root.open())
            return false;
        readTree(root);
        return true;
    }

    CompoundFileLibrary _library;
    TempFolder _folder;
    LogCapture _log;
    Bytes _whole = bytesOfCompoundFile({
        compObj2007(),
        storage("   112",
                {storage("TBkndTask", {stream("FixedData", patternBytes(5000))}), stream("Props", patternBytes(700))}),
        stream("Props12", patternBytes(9000)),
        stream("Empty", {}),
    });
};

TEST_F(HostileTemplates, TruncatedAnywhereAreReadOrRejected) {
    ASSERT_TRUE(survives(_whole));
    for (std::size_t size = 0; size < _whole.size(); size += size < 1200 ? 37 : 211)
        survives(Bytes(_whole.begin(), _whole.begin() + static_cast<std::ptrdiff_t>(size)));
    EXPECT_FALSE(survives(Bytes(_whole.begin(), _whole.begin() + kSector)));
}

TEST_F(HostileTemplates, WithDamagedBytesAreReadOrRejected) {
    std::mt19937 random(20071);
    const std::size_t tables = integerAt(_whole, 48) * kSector; // the directory and the allocation table come last
    for (int round = 0; round < 1500; ++round) {
        Bytes damaged = _whole;
        for (int flips = 1 + round % 6; flips > 0; --flips) {
            const bool inHeader = random() % 3 == 0;
            const std::size_t place = inHeader ? 24 + random() % 100 : tables + random() % (_whole.size() - tables);
            damaged[place] = static_cast<std::uint8_t>(random() % 3 == 0 ? 0xFF : random() % 256);
        }
        survives(damaged);
    }
}

TEST_F(HostileTemplates, OfRandomBytesAreRejected) {
    for (unsigned seed = 1; seed < 40; ++seed) {
        Bytes bytes = patternBytes(seed * 300, seed);
        EXPECT_FALSE(survives(bytes));
        std::copy_n(_whole.begin(), std::min<std::size_t>(bytes.size(), 76), bytes.begin());
        survives(bytes);
    }
}

TEST_F(HostileTemplates, WithLoopsInTheAllocationTableTerminate) {
    const std::size_t table = (integerAt(_whole, 76) + 1) * kSector;
    const std::uint32_t sectors = static_cast<std::uint32_t>(_whole.size() / kSector) - 1;
    for (std::uint32_t from = 0; from < sectors; ++from) {
        for (const std::uint32_t to : {from, from - 1, std::uint32_t{0}, sectors * 2}) {
            Bytes looped = _whole;
            put32(looped, table + 4 * std::size_t{from}, to);
            survives(looped);
        }
    }
    Bytes listLoop = _whole; // the list of the table's sectors points to itself
    put32(listLoop, 68, 0);
    put32(listLoop, 72, 0xFFFFFFFF);
    put32(listLoop, 44, 0xFFFFFFFF);
    survives(listLoop);
}

/// A file of `count` empty storages, each the right sibling of the one before or nested in it: the compound-file
/// library needs that many levels of recursion for it.
Bytes chainedDirectory(std::uint32_t count, bool nested) {
    constexpr std::size_t kEntry = 128;
    constexpr std::uint32_t kNone = 0xFFFFFFFF;
    constexpr std::uint32_t kEndOfChain = 0xFFFFFFFE;
    const std::uint32_t sectors = (count + 4) / 4; // including the root
    const std::uint32_t tables = sectors / 127 + 1;
    const std::uint32_t lists = tables > 109 ? (tables - 109) / 127 + 1 : 0;
    Bytes bytes((1 + std::size_t{sectors} + tables + lists) * kSector);
    const auto offsetOf = [](std::uint32_t sector) { return (std::size_t{sector} + 1) * kSector; };

    for (std::uint32_t i = 0; i <= count; ++i) {
        const std::size_t entry = kSector + i * kEntry;
        const std::string name = i == 0 ? "Root Entry" : std::to_string(1000000 + i);
        for (std::size_t k = 0; k < name.size(); ++k)
            bytes[entry + 2 * k] = static_cast<std::uint8_t>(name[k]);
        bytes[entry + 64] = static_cast<std::uint8_t>(2 * name.size() + 2);
        bytes[entry + 66] = i == 0 ? 5 : 1;
        const std::uint32_t next = i < count ? i + 1 : kNone;
        put32(bytes, entry + 68, kNone);
        put32(bytes, entry + 72, i == 0 || nested ? kNone : next);
        put32(bytes, entry + 76, i == 0 || nested ? next : kNone);
        put32(bytes, entry + 116, kEndOfChain);
    }

    const std::uint8_t magic[] = {0xD0, 0xCF, 0x11, 0xE0, 0xA1, 0xB1, 0x1A, 0xE1};
    std::copy(std::begin(magic), std::end(magic), bytes.begin());
    put32(bytes, 24, 0x0003003E);
    put32(bytes, 28, 0x0009FFFE); // byte order, sectors of 512 bytes
    put32(bytes, 32, 6);
    put32(bytes, 44, tables);
    put32(bytes, 48, 0);
    put32(bytes, 56, 4096);
    put32(bytes, 60, kEndOfChain);
    put32(bytes, 68, lists > 0 ? sectors + tables : kEndOfChain);
    put32(bytes, 72, lists);
    for (std::uint32_t i = 0; i < 109; ++i)
        put32(bytes, 76 + 4 * std::size_t{i}, i < tables ? sectors + i : kNone);
    for (std::uint32_t i = 0; i < lists * 127; ++i)
        put32(bytes, offsetOf(sectors + tables + i / 127) + 4 * std::size_t{i % 127},
              109 + i < tables ? sectors + 109 + i : kNone);
    for (std::uint32_t i = 0; i < lists; ++i)
        put32(bytes, offsetOf(sectors + tables + i) + 4 * 127, i + 1 < lists ? sectors + tables + i + 1 : kEndOfChain);
    for (std::uint32_t i = 0; i < tables * 128; ++i)
        put32(bytes, offsetOf(sectors) + 4 * std::size_t{i}, i + 1 < sectors ? i + 1 : kEndOfChain);
    return bytes;
}

TEST_F(HostileTemplates, WithDirectoriesThatWouldOverflowTheStackAreRejected) {
    for (const bool nested : {false, true}) {
        EXPECT_TRUE(survives(chainedDirectory(5000, nested)));
        EXPECT_FALSE(survives(chainedDirectory(12000, nested)));
        EXPECT_FALSE(survives(chainedDirectory(100000, nested)));
    }
}

} // namespace
} // namespace brackwater::test
