#pragma once

#include <fmt/core.h>

#include <exception>
#include <string>
#include <string_view>

namespace brackwater {

/// Name of every failed internal check; its reason is the check's message.
inline constexpr std::string_view kInternalInconsistencyException = "NSInternalInconsistencyException";
/// Name of a failed access outside the bounds of a buffer or list.
inline constexpr std::string_view kRangeException = "NSRangeException";

/// A raised failure: a name that tells its kind, a reason for people, and optional further information.
class Exception : public std::exception {
public:
    Exception(std::string_view name, std::string reason, std::string userInfo = {});

    [[nodiscard]] const std::string& name() const noexcept { return _name; }
    [[nodiscard]] const std::string& reason() const noexcept { return _reason; }
    /// Description of the further information; empty when there is none.
    [[nodiscard]] const std::string& userInfo() const noexcept { return _userInfo; }
    /// "name: reason", for readers that know std::exception only.
    [[nodiscard]] const char* what() const noexcept override { return _what.c_str(); }

private:
    std::string _name;
    std::string _reason;
    std::string _userInfo;
    std::string _what;
};

/// Raises the failure of an internal check with `message` as its reason.
[[noreturn]] void failAssertion(std::string message);

/// Checks `condition`; the message is formatted only when the check fails.
template <typename... Args>
void assertThat(bool condition, fmt::format_string<Args...> message, Args&&... args) {
    if (!condition) [[unlikely]]
        failAssertion(fmt::format(message, std::forward<Args>(args)...));
}

} // namespace brackwater
