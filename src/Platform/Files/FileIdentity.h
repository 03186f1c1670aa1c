#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace brackwater {

/// Which file stands at a path, and when it last changed. Equal identities that are settled mean the same bytes.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t number = 0; ///< of the file on its device
    std::int64_t size = 0;    ///< in bytes
    /// Of the last change of contents, name or rights, since 1970.
    std::int64_t changeSeconds = 0;
    std::int64_t changeNanoseconds = 0; ///< below a second

    /// Of the regular file at a path; follows links. Nothing where none can be seen.
    [[nodiscard]] static std::optional<FileIdentity> ofFile(const std::string& path);

    /// Whether the last change lies so far back that another one would have another time: some file systems tell time
    /// in steps of two seconds, and a server's clock may be ahead.
    [[nodiscard]] bool isSettled() const;

    bool operator==(const FileIdentity&) const = default;
};

} // namespace brackwater
