#pragma once

#include <string>
#include <string_view>

namespace brackwater {

/// The persistent preferences of one domain: a key file "DOMAIN.conf" in the user's configuration folder, group
/// "[Preferences]". All values are false if the file is missing, unreadable, not a regular file or larger than 1 MiB;
/// missing groups and keys are false too.
class Preferences {
public:
    explicit Preferences(std::string_view domain);

    /// The value parsed by `boolValue` (TextReadings.h).
    [[nodiscard]] bool boolForKey(const std::string& key) const;

    /// The location of the domain's file.
    [[nodiscard]] static std::string pathOfDomain(std::string_view domain);

private:
    std::string _path;
};

} // namespace brackwater
