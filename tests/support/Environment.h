#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace brackwater::test {

/// Sets an environment variable, or unsets it if `value` is null, for the lifetime of the object.
class ScopedEnvironment {
public:
    ScopedEnvironment(const char* name, const char* value) : _name(name) {
        if (const char* present = std::getenv(name))
            _before = present;
        set(value);
    }
    ~ScopedEnvironment() { set(_before ? _before->c_str() : nullptr); }
    ScopedEnvironment(const ScopedEnvironment&) = delete;
    ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;

private:
    void set(const char* value) {
        if (value != nullptr)
            setenv(_name.c_str(), value, 1);
        else
            unsetenv(_name.c_str());
    }

    std::string _name;
    std::optional<std::string> _before;
};

} // namespace brackwater::test
