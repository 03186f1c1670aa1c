#pragma once

namespace brackwater {

/// Starts the compound-file library for one export and stops it at the end. Meanwhile the library prints no messages
/// about damaged files: its results report damage. Objects nest.
class CompoundFileLibrary {
public:
    CompoundFileLibrary();
    ~CompoundFileLibrary();
    CompoundFileLibrary(const CompoundFileLibrary&) = delete;
    CompoundFileLibrary& operator=(const CompoundFileLibrary&) = delete;
};

} // namespace brackwater
