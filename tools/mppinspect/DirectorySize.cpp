#include "DirectorySize.h"

#include <algorithm>
#include <vector>

namespace brackwater::inspect {

namespace {

constexpr std::uint64_t kShiftAt = 30, kDirectoryStartAt = 48, kListStartAt = 68, kTableListAt = 76;
constexpr std::uint64_t kTablesInHeader = 109;
constexpr std::uint32_t kChainEnd = 0xFFFFFFFA; ///< from here on no sector
constexpr std::uint64_t kHeaderSize = 512;

/// The sectors of a compound file and the table that chains them.
class Sectors {
public:
    Sectors(const WordReader& wordAt, unsigned shift) : _wordAt(wordAt), _size(std::uint64_t{1} << shift) {}

    [[nodiscard]] std::uint64_t size() const { return _size; }

    std::optional<std::uint32_t> after(std::uint32_t sector) {
        const auto table = tableSector(sector / words());
        return table ? word(*table, sector % words()) : std::nullopt;
    }

private:
    [[nodiscard]] std::uint64_t words() const { return _size / 4; }

    [[nodiscard]] std::optional<std::uint32_t> word(std::uint32_t sector, std::uint64_t index) const {
        if (sector >= kChainEnd)
            return std::nullopt;
        return _wordAt(std::max(kHeaderSize, _size) + sector * _size + 4 * index);
    }

    // The first tables are listed in the header, the others in a chain of sectors whose last word names the next one.
    std::optional<std::uint32_t> tableSector(std::uint64_t number) {
        if (number < kTablesInHeader)
            return _wordAt(kTableListAt + 4 * number);
        number -= kTablesInHeader;
        const std::uint64_t perSector = words() - 1;
        while (_lists.size() <= number / perSector) {
            const auto next = _lists.empty() ? _wordAt(kListStartAt) : word(_lists.back(), perSector);
            if (!next || *next >= kChainEnd)
                return std::nullopt;
            _lists.push_back(*next);
        }
        return word(_lists[number / perSector], number % perSector);
    }

    const WordReader& _wordAt;
    std::uint64_t _size;
    std::vector<std::uint32_t> _lists;
};

} // namespace

std::optional<std::uint64_t> directorySize(const WordReader& wordAt, std::uint64_t bound) {
    const auto shift = wordAt(kShiftAt);
    constexpr unsigned smallSectors = 9, largeSectors = 12;
    if (!shift || ((*shift & 0xFFFF) != smallSectors && (*shift & 0xFFFF) != largeSectors))
        return std::nullopt;
    Sectors sectors(wordAt, *shift & 0xFFFF);
    auto sector = wordAt(kDirectoryStartAt);
    for (std::uint64_t size = 0; sector && size <= bound; size += sectors.size()) {
        if (*sector >= kChainEnd)
            return size;
        sector = sectors.after(*sector);
    }
    return std::nullopt;
}

} // namespace brackwater::inspect
