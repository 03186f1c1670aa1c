#pragma once

#include <string>
#include <string_view>

namespace brackwater {

inline constexpr std::string_view kXQueryErrorDomain = "lanthorn.TWMSPFilter.XQueryErrorDomain";
inline constexpr std::string_view kGeneralErrorDomain = "lanthorn.TWMSPFilter.GeneralErrorDomain";

/// The reason for an absent result: code 0 means no error. Operations take it as an optional out parameter (`Error*
/// error`, may be null) and do not touch it on success.
struct Error {
    std::string_view domain; ///< one of the two domains above
    int code = 0;
    std::string description;

    /// True if an error was stored here.
    explicit operator bool() const noexcept { return code != 0; }
};

} // namespace brackwater
