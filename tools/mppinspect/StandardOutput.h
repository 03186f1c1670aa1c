#pragma once

#include <string_view>

namespace brackwater::inspect {

/// Standard output, none of whose failures goes unseen: both throw std::system_error with a sentence for the user.
class StandardOutput {
public:
    static void write(std::string_view text);
    /// Needed at the end: what the system still holds back may fail as well.
    static void close();
};

} // namespace brackwater::inspect
