#pragma once

#include <stdexcept>

namespace brackwater {

/// Something that the command line names is not as it must be: nothing is begun. Its text is one sentence for people.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace brackwater
