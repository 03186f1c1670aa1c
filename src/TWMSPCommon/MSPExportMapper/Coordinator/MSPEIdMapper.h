#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace brackwater {

/// Converts source ids to UIDs: the number in the id is the UID, the roots have "0".
class MSPEIdMapper {
public:
    /// Raises if an id lacks its prefix, "r" or "t".
    MSPEIdMapper(std::optional<std::string> topResourceId, std::optional<std::string> topTaskId);

    /// The text after the prefix, unchanged, if its integer value is positive; otherwise empty, as for a missing or
    /// empty id. Raises if the prefix is wrong.
    [[nodiscard]] std::string resourceUIDFromZelbResourceId(std::optional<std::string_view> id) const;
    [[nodiscard]] std::string taskUIDFromZelbId(std::optional<std::string_view> id) const;
    /// Whether the call above does not raise.
    [[nodiscard]] static bool isTaskId(std::string_view id);

private:
    std::string _topResourceId;
    std::string _topTaskId;
};

} // namespace brackwater
