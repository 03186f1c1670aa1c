#pragma once

#include <stdexcept>

namespace brackwater {

/// Something on the command line is wrong: the run does not start. The text is one sentence for people.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace brackwater
