#pragma once

#include "ByteView.h"
#include "Complaints.h"

namespace brackwater::inspect {

/// The streams of one storage of rows, as far as the file has them.
struct RowStreams {
    std::optional<Bytes> varMeta, var2Data, fixedMeta, fixedData, fixed2Meta, fixed2Data, props;
};

/// The elements of Var2Data, found by owner and type. Holds views into the streams.
class VarData {
public:
    struct Element {
        std::uint64_t key; ///< owner shifted left by 16, type
        ByteView payload;
    };
    /// All elements of one owner, so that its fields need not be sought among everybody's.
    using Owned = std::span<const Element>;

    VarData() = default;
    VarData(const RowStreams& streams, const std::string& where, Complaints& complaints);

    [[nodiscard]] Owned elementsOf(std::uint32_t owner) const;
    /// Empty without the element. Elements may overlap, and rows may share them: all that is read in this way may be
    /// no more than a multiple of the stream, and is empty from there on.
    [[nodiscard]] ByteView find(Owned elements, std::uint16_t type) const;
    [[nodiscard]] std::size_t size() const noexcept { return _elements.size(); }
    /// Complains of elements whose owner is not among the given ids, which must be sorted, and of reading that was
    /// ended. Needed when all rows are read.
    void checkOwners(const std::vector<std::uint32_t>& ids, const std::string& where, Complaints& complaints) const;

private:
    std::vector<Element> _elements;     ///< sorted by key
    mutable std::size_t _bytesLeft = 0; ///< to read, so that no small file makes much work
};

/// One row: its bytes in both blocks and the bits of both its records. Views into the streams.
struct RawRow {
    std::size_t number = 0;         ///< among the rows of the storage, from 0
    std::uint16_t marks = 0;        ///< first word of the record
    std::uint16_t elementCount = 0; ///< second word: elements in Var2Data
    ByteView first, second;
    ByteView firstBits, secondBits;
};

/// Sizes of the records of a kind of row.
struct RecordSizes {
    std::size_t first, second;
};

/// The rows of a storage in the order of their records.
[[nodiscard]] std::vector<RawRow> readRows(const RowStreams& streams, RecordSizes sizes, const std::string& where,
                                           Complaints& complaints);

} // namespace brackwater::inspect
