#include "support/ScopedTimeZone.h"

#include <cstdlib>
#include <ctime>

namespace brackwater::test {

ScopedTimeZone::ScopedTimeZone(const std::string& zone) {
    if (const char* before = std::getenv("TZ"))
        _before = before;
    setenv("TZ", zone.c_str(), 1);
    tzset();
}

ScopedTimeZone::~ScopedTimeZone() {
    if (_before)
        setenv("TZ", _before->c_str(), 1);
    else
        unsetenv("TZ");
    tzset();
}

} // namespace brackwater::test
