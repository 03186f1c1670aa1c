#pragma once

#include "mppinspect/ProjectFile.h"
#include "support/ByteImage.h"
#include "support/CompoundFile.h"

#include <map>

namespace brackwater::test {

/// A field map, row by row.
class MapImage {
public:
    static constexpr unsigned kNumber16 = 2, kNumber32 = 3, kDouble = 5, kDate = 0x13, kFlag = 0x64, kScaled = 0x65,
                              kGuid = 0x48;
    MapImage& fixed(unsigned offset, unsigned field, unsigned category) { return row(offset, field, category); }
    MapImage& variable(unsigned field) { return row(0xFFFF, field, 8); }
    MapImage& flag(unsigned field) { return row(0xFFFF, field, kFlag); }
    /// Rows of no field up to this number of them.
    MapImage& fill(std::size_t rows);
    [[nodiscard]] const Bytes& bytes() const noexcept { return _bytes; }

private:
    MapImage& row(unsigned offset, unsigned field, unsigned category);
    Bytes _bytes;
};

/// The streams of one storage, row by row.
class RowsImage {
public:
    RowsImage(std::size_t firstRecord, std::size_t secondRecord)
        : _firstRecord(firstRecord), _secondRecord(secondRecord) {}

    /// A row with the bits that are set in its records.
    RowsImage& row(const ByteImage& first, const ByteImage& second, std::vector<std::size_t> bits = {},
                   unsigned marks = 0);
    RowsImage& secondBits(std::vector<std::size_t> bits);
    RowsImage& headers(unsigned count, std::size_t secondSize);
    RowsImage& element(std::uint32_t owner, unsigned type, const Bytes& payload);
    [[nodiscard]] CompoundTree streams() const;

    Bytes fixedMeta, fixedData, fixed2Meta, fixed2Data, varRecords, var2Data, props;
    std::uint32_t rows = 0, elements = 0;

private:
    std::size_t _firstRecord, _secondRecord;
};

/// A Props stream of these properties.
[[nodiscard]] Bytes propsImage(const std::vector<std::pair<std::uint32_t, Bytes>>& properties);

/// A whole file around the storages that a test is about; the others are empty.
class FileImage {
public:
    FileImage();
    std::map<std::string, RowsImage> storages;               ///< by name
    std::vector<std::pair<std::uint32_t, Bytes>> properties; ///< of the version folder
    std::string folder = "   112";

    [[nodiscard]] RowsImage& operator[](const std::string& storage) { return storages.at(storage); }
    [[nodiscard]] CompoundTree tree() const;
    [[nodiscard]] inspect::ProjectFile decoded() const;
};

} // namespace brackwater::test
