#include "MPPXMLDOMFilter/Container/DirectoryBound.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <vector>

namespace brackwater {

namespace {

constexpr std::uint64_t kMostDirectoryEntries = 10000;
constexpr std::uint64_t kDirectoryEntrySize = 128;

// The compound file's header.
constexpr std::uint64_t kHeaderSize = 512;
constexpr std::uint64_t kSectorShift = 30;
constexpr std::uint64_t kFirstDirectorySector = 48;
constexpr std::uint64_t kFirstTableListSector = 68;
constexpr std::uint64_t kTableList = 76;
constexpr std::uint64_t kTableListLength = 109;

/// Sector numbers from here on mark the end of a chain or a sector without a stream.
constexpr std::uint32_t kFirstMark = 0xFFFFFFFA;

/// Follows the directory's chain through the allocation table and counts its sectors.
class DirectoryChain {
public:
    explicit DirectoryChain(GsfInput* input) : _input(input) {}

    bool isWithinBound() {
        const auto shift = wordAt(kSectorShift);
        if (!shift || ((*shift & 0xFFFF) != 9 && (*shift & 0xFFFF) != 12))
            return false;
        _sectorSize = std::uint64_t{1} << (*shift & 0xFFFF);

        auto sector = wordAt(kFirstDirectorySector);
        const std::uint64_t most = kMostDirectoryEntries * kDirectoryEntrySize / _sectorSize;
        for (std::uint64_t count = 0; sector && count <= most; ++count) {
            if (*sector >= kFirstMark)
                return true;
            sector = sectorAfter(*sector);
        }
        return false;
    }

private:
    std::optional<std::uint32_t> wordAt(std::uint64_t offset) {
        if (gsf_input_seek(_input, static_cast<gsf_off_t>(offset), G_SEEK_SET))
            return std::nullopt;
        const guint8* bytes = gsf_input_read(_input, 4, nullptr);
        if (bytes == nullptr)
            return std::nullopt;
        return bytes[0] | std::uint32_t{bytes[1]} << 8 | std::uint32_t{bytes[2]} << 16 | std::uint32_t{bytes[3]} << 24;
    }

    std::optional<std::uint32_t> wordInSector(std::uint32_t sector, std::uint64_t index) {
        // The header takes one sector, at least 512 bytes.
        return wordAt(std::max(kHeaderSize, _sectorSize) + sector * _sectorSize + 4 * index);
    }

    [[nodiscard]] std::uint64_t wordsInSector() const { return _sectorSize / 4; }

    std::optional<std::uint32_t> sectorAfter(std::uint32_t sector) {
        const auto table = tableSector(sector / wordsInSector());
        return table ? wordInSector(*table, sector % wordsInSector()) : std::nullopt;
    }

    /// The sector that holds the given part of the allocation table: listed in the header, then in a chain of sectors
    /// whose last word is the next sector.
    std::optional<std::uint32_t> tableSector(std::uint64_t index) {
        if (index < kTableListLength)
            return wordAt(kTableList + 4 * index);
        const std::uint64_t place = index - kTableListLength;
        const std::uint64_t partsInSector = wordsInSector() - 1;
        while (_listSectors.size() <= place / partsInSector) {
            const auto next =
                _listSectors.empty() ? wordAt(kFirstTableListSector) : wordInSector(_listSectors.back(), partsInSector);
            if (!next || *next >= kFirstMark)
                return std::nullopt;
            _listSectors.push_back(*next);
        }
        return wordInSector(_listSectors[place / partsInSector], place % partsInSector);
    }

    GsfInput* _input;
    std::uint64_t _sectorSize = 0;
    std::vector<std::uint32_t> _listSectors; ///< as far as followed
};

} // namespace

bool hasSensibleDirectory(GsfInput* input) {
    const bool sensible = DirectoryChain(input).isWithinBound();
    return !gsf_input_seek(input, 0, G_SEEK_SET) && sensible;
}

} // namespace brackwater
