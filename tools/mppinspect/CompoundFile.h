#pragma once

#include "ByteView.h"
#include "Complaints.h"

#include <memory>
#include <string>

namespace brackwater::inspect {

/// One entry as the file lists it.
struct EntryInfo {
    std::string path; ///< names joined by "/"
    bool isStorage = false;
    std::int64_t size = 0; ///< bytes of a stream
};

/// An OLE2 compound file open for reading.
class CompoundFile {
public:
    /// Throws std::runtime_error with a sentence for the user when the file is none.
    static CompoundFile open(const std::string& path);
    static CompoundFile fromBytes(Bytes bytes);
    CompoundFile(CompoundFile&&) noexcept;
    CompoundFile& operator=(CompoundFile&&) noexcept;
    ~CompoundFile();

    /// All entries, storages before their children. Storages deeper than any real file's and entries beyond any real
    /// number of them are left out with a complaint.
    [[nodiscard]] std::vector<EntryInfo> entries(Complaints& complaints) const;
    [[nodiscard]] bool has(std::initializer_list<std::string_view> path) const;
    /// The bytes of a stream; nothing without it. A stream that cannot be read whole gives a complaint and nothing.
    [[nodiscard]] std::optional<Bytes> read(std::initializer_list<std::string_view> path, Complaints& complaints) const;

private:
    struct Node;
    explicit CompoundFile(std::unique_ptr<Node> root);
    std::unique_ptr<Node> _root;
};

} // namespace brackwater::inspect
