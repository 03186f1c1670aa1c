#pragma once

#include <string>
#include <string_view>

namespace brackwater {

/// The persistent preferences of one domain: a key file "DOMAIN.conf" in the user's configuration folder, group
/// "[Preferences]". A missing or unreadable file, one that is no regular file or larger than 1 MiB, a missing group or
/// key read as false.
class Preferences {
public:
    explicit Preferences(std::string_view domain);

    /// The value's text read by `boolValue` (TextReadings.h).
    [[nodiscard]] bool boolForKey(const std::string& key) const;

    /// Where the domain's file is looked for.
    [[nodiscard]] static std::string pathOfDomain(std::string_view domain);

private:
    std::string _path;
};

} // namespace brackwater
