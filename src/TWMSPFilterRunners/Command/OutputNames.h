#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>

namespace brackwater {

/// The path of the n-th output of one name: "Plan.mpp" of 0, "Plan-1.mpp" of 1.
[[nodiscard]] std::string numberedPath(const std::string& path, std::uint64_t number);

/// Hands out the outputs of a run, no path twice.
class OutputNames {
public:
    /// With `replacesOutputs` only the names of this run count as taken, otherwise also what stands on the disk, links
    /// that lead nowhere included.
    explicit OutputNames(bool replacesOutputs) : _replacesOutputs(replacesOutputs) {}

    /// The path (absolute, without links in its folder) itself, or the first free one with a number. All outputs of one
    /// name together cost n log n.
    [[nodiscard]] std::string take(const std::string& path);

private:
    [[nodiscard]] bool isFree(const std::string& path) const;

    bool _replacesOutputs;
    std::set<std::string> _taken;
    std::map<std::string, std::uint64_t> _nextNumber; ///< of each path that was asked for
};

} // namespace brackwater
