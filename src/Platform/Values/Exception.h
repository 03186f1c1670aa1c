#pragma once

#include <fmt/core.h>

#include <exception>
#include <string>
#include <string_view>

namespace brackwater {

/// Name of all failed internal checks; the reason is the check's message.
inline constexpr std::string_view kInternalInconsistencyException = "NSInternalInconsistencyException";
/// Name of an out-of-range access to a buffer or list.
inline constexpr std::string_view kRangeException = "NSRangeException";

/// A raised failure: a name for its kind, a reason for people, and optional further information.
class Exception : public std::exception {
public:
    Exception(std::string_view name, std::string reason, std::string userInfo = {});

    [[nodiscard]] const std::string& name() const noexcept { return _name; }
    [[nodiscard]] const std::string& reason() const noexcept { return _reason; }
    /// Description of the further information; empty if there is none.
    [[nodiscard]] const std::string& userInfo() const noexcept { return _userInfo; }
    /// "name: reason", for handlers that know only std::exception.
    [[nodiscard]] const char* what() const noexcept override { return _what.c_str(); }

private:
    std::string _name;
    std::string _reason;
    std::string _userInfo;
    std::string _what;
};

/// Raises the failure of an internal check with `message` as its reason.
[[noreturn]] void failAssertion(std::string message);

/// Checks `condition`; formats the message only if the check fails.
template <typename... Args>
void assertThat(bool condition, fmt::format_string<Args...> message, Args&&... args) {
    if (!condition) [[unlikely]]
        failAssertion(fmt::format(message, std::forward<Args>(args)...));
}

} // namespace brackwater
