#pragma once

#include "MPPXMLDOMFilter/Container/MPPFormatReader.h"
#include "support/MemoryWriter.h"

#include <optional>
#include <string>
#include <vector>

namespace brackwater::test {

/// A tree of storages and streams: the source of a compound file, or its contents.
struct CompoundEntry {
    std::string name;
    Bytes bytes;                                        ///< if a stream
    std::optional<std::vector<CompoundEntry>> children; ///< if a storage

    friend bool operator==(const CompoundEntry&, const CompoundEntry&) = default;
    /// Paths and sizes, one entry per line, for test output.
    friend void PrintTo(const CompoundEntry& entry, std::ostream* out);
};
using CompoundTree = std::vector<CompoundEntry>;

[[nodiscard]] CompoundEntry stream(std::string name, Bytes bytes);
[[nodiscard]] CompoundEntry storage(std::string name, CompoundTree children);
/// "\x01CompObj" with these two texts.
[[nodiscard]] CompoundEntry compObj(const std::string& userType, const std::string& formatName);
/// "\x01CompObj" of the 2007 family.
[[nodiscard]] CompoundEntry compObj2007();
/// `size` bytes that vary by position and `seed`.
[[nodiscard]] Bytes patternBytes(std::size_t size, unsigned seed = 1);

/// The bytes of a compound file with this tree.
[[nodiscard]] Bytes bytesOfCompoundFile(const CompoundTree& tree);
void writeFile(const std::string& path, const Bytes& bytes);
[[nodiscard]] Bytes readFile(const std::string& path);
/// Writes a compound file with this tree.
void writeCompoundFile(const std::string& path, const CompoundTree& tree);

/// A compound file with this tree, in memory, as an open reader of its root.
[[nodiscard]] std::shared_ptr<MPPFormatReader> readerOfCompoundFile(const CompoundTree& tree);

/// Reads a compound file back, in the library's order of entries; throws if it cannot be opened or a stream cannot be
/// read.
[[nodiscard]] CompoundTree readCompoundFile(const std::string& path);
/// The entry at "   112/TBkndTask/Var2Data"; null if there is none.
[[nodiscard]] const CompoundEntry* entryAt(const CompoundTree& tree, const std::string& path);
/// Paths of all entries, one per line, storages with a trailing slash.
[[nodiscard]] std::string listing(const CompoundTree& tree, const std::string& prefix = {});

} // namespace brackwater::test
