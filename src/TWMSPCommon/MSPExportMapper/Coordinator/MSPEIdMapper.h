#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace brackwater {

/// Turns source ids into UIDs: the number of the id is the UID, the roots have "0".
class MSPEIdMapper {
public:
    /// Raises where an id lacks its prefix, "r" or "t".
    MSPEIdMapper(std::optional<std::string> topResourceId, std::optional<std::string> topTaskId);

    /// The text behind the prefix as it stands, where its integer value is positive; else the empty text, as for a
    /// missing or empty id. Raises where the prefix is wrong.
    [[nodiscard]] std::string resourceUIDFromZelbResourceId(std::optional<std::string_view> id) const;
    [[nodiscard]] std::string taskUIDFromZelbId(std::optional<std::string_view> id) const;

private:
    std::string _topResourceId;
    std::string _topTaskId;
};

} // namespace brackwater
