#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>

namespace brackwater {

/// The path of the n-th output of one name: "Plan.mpp" for 0, "Plan-1.mpp" for 1.
[[nodiscard]] std::string numberedPath(const std::string& path, std::uint64_t number);

/// Assigns the outputs of a run, each path only once.
class OutputNames {
public:
    /// With `replacesOutputs` only the names of this run count as taken, otherwise also existing files, including
    /// dangling links.
    explicit OutputNames(bool replacesOutputs) : _replacesOutputs(replacesOutputs) {}

    /// The path (absolute, without links in its folder) itself, or the first free one with a number. All outputs of one
    /// name together cost n log n.
    [[nodiscard]] std::string take(const std::string& path);

private:
    [[nodiscard]] bool isFree(const std::string& path) const;

    bool _replacesOutputs;
    std::set<std::string> _taken;
    std::map<std::string, std::uint64_t> _nextNumber; ///< of each requested path
};

} // namespace brackwater
