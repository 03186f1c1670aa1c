#pragma once

#include <optional>
#include <string>

namespace brackwater::test {

/// Sets TZ while it lives and puts back what was there before.
class ScopedTimeZone {
public:
    explicit ScopedTimeZone(const std::string& zone);
    ~ScopedTimeZone();
    ScopedTimeZone(const ScopedTimeZone&) = delete;
    ScopedTimeZone& operator=(const ScopedTimeZone&) = delete;

private:
    std::optional<std::string> _before;
};

} // namespace brackwater::test
