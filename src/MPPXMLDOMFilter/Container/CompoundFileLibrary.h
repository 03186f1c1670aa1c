#pragma once

namespace brackwater {

/// Starts the compound-file library for one export and stops it at the end. While it lives, what the library would
/// print about damaged files stays off the terminal: damage is told by the results of its calls. Objects nest.
class CompoundFileLibrary {
public:
    CompoundFileLibrary();
    ~CompoundFileLibrary();
    CompoundFileLibrary(const CompoundFileLibrary&) = delete;
    CompoundFileLibrary& operator=(const CompoundFileLibrary&) = delete;
};

} // namespace brackwater
