#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace brackwater {

/// Kinds of rows, numbered as in the project's properties.
enum class MPPRowKind { Task = 1, Resource = 2, Calendar = 3, Assignment = 4, Link = 5 };

/// The file's counts of its own rows. The writers record what they write; the project's properties, written last,
/// contain it.
class MPPBookkeeping {
public:
    struct Rows {
        std::uint32_t count = 0;        ///< including header rows
        std::uint32_t var2DataSize = 0; ///< bytes; 0 for links, which have none
    };

    [[nodiscard]] Rows& of(MPPRowKind kind) { return _rows[static_cast<std::size_t>(kind) - 1]; }
    [[nodiscard]] const Rows& of(MPPRowKind kind) const { return _rows[static_cast<std::size_t>(kind) - 1]; }

    /// Bytes of a task's row in "Fixed2Data", from the template's properties: 54, or 80 in older files.
    std::uint32_t taskSecondRowSize = 54;

private:
    std::array<Rows, 5> _rows{};
};

} // namespace brackwater
