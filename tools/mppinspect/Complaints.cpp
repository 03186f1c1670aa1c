#include "Complaints.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>

namespace brackwater::inspect {

namespace {
constexpr std::size_t kPlacesKept = 5;
}

void Complaints::add(std::string_view where, std::string_view what, std::string place) {
    const auto [found, isNew] = _index.try_emplace({std::string(where), std::string(what)}, _groups.size());
    if (isNew)
        _groups.push_back({std::string(where), std::string(what), {}, 0});
    Group& group = _groups[found->second];
    ++group.count;
    if (!place.empty() && group.places.size() < kPlacesKept)
        group.places.push_back(std::move(place));
}

void Complaints::add(const Group& group) {
    if (_index.try_emplace({group.where, group.what}, _groups.size()).second)
        _groups.push_back(group);
}

std::vector<std::string> Complaints::lines() const {
    std::vector<std::string> lines;
    for (const Group& group : _groups) {
        std::string line = fmt::format("{}: {}", group.where, group.what);
        if (!group.places.empty())
            line += fmt::format(": {}", fmt::join(group.places, ", "));
        if (group.count > std::max<std::size_t>(group.places.size(), 1))
            line += fmt::format(" ({} in all)", group.count);
        lines.push_back(std::move(line));
    }
    return lines;
}

bool Complaints::mention(std::string_view what) const {
    return std::ranges::any_of(_groups,
                               [what](const Group& group) { return group.what.find(what) != std::string::npos; });
}

} // namespace brackwater::inspect
