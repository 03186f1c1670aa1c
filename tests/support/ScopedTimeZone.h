#pragma once

#include "support/Environment.h"

#include <ctime>
#include <optional>
#include <string>

namespace brackwater::test {

/// Sets TZ for its lifetime and then restores the previous value.
class ScopedTimeZone {
public:
    explicit ScopedTimeZone(const std::string& zone) {
        _tz.emplace("TZ", zone.c_str());
        tzset();
    }
    ~ScopedTimeZone() {
        _tz.reset();
        tzset();
    }
    ScopedTimeZone(const ScopedTimeZone&) = delete;
    ScopedTimeZone& operator=(const ScopedTimeZone&) = delete;

private:
    std::optional<ScopedEnvironment> _tz;
};

} // namespace brackwater::test
