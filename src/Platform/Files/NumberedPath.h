#pragma once

#include <cstdint>
#include <string>

namespace brackwater {

/// The path of an output, with the alternatives to try if it is taken: "Plan.mpp", "Plan-1.mpp", "Plan-2.mpp" and so
/// on.
class NumberedPath {
public:
    explicit NumberedPath(std::string path);

    /// The current name; initially the path itself.
    [[nodiscard]] const std::string& path() const noexcept { return _path; }
    /// Moves on to the next name.
    void next();
    /// Moves on to the first name that does not exist, which may be the current one; follows links. It may be taken
    /// later. Skips numbers that an earlier search of this process found taken, so that many outputs of one name cost
    /// no more than outputs of different names.
    void findFree();

private:
    void setNumber(std::int64_t number);

    std::string _original;
    std::string _stem;
    std::string _extension;
    std::string _path;
    std::int64_t _number = 0; ///< 0: the path itself
};

} // namespace brackwater
