#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace brackwater::inspect {

/// What does not fit in a file, grouped: a fault that comes back in a million rows is told with its first places and
/// their number.
class Complaints {
public:
    struct Group {
        std::string where; ///< the entry, as "TBkndTask/VarMeta"
        std::string what;  ///< the fault
        std::vector<std::string> places;
        std::uint64_t count = 0;
    };

    /// `place` says which row or element, it may be empty.
    void add(std::string_view where, std::string_view what, std::string place = {});
    /// Takes over what was complained of elsewhere.
    void add(const Group& group);
    [[nodiscard]] bool empty() const noexcept { return _groups.empty(); }
    /// In the order of their first appearance.
    [[nodiscard]] const std::vector<Group>& groups() const noexcept { return _groups; }
    /// One sentence a group.
    [[nodiscard]] std::vector<std::string> lines() const;
    /// Whether a complaint about this fault was made anywhere.
    [[nodiscard]] bool mention(std::string_view what) const;

private:
    std::vector<Group> _groups;
    std::map<std::pair<std::string, std::string>, std::size_t> _index;
};

} // namespace brackwater::inspect
