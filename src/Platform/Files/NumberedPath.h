#pragma once

#include <cstdint>
#include <string>

namespace brackwater {

/// Where an output goes, and the names beside it that are tried in turn where that one is taken: "Plan.mpp",
/// "Plan-1.mpp", "Plan-2.mpp" and so on.
class NumberedPath {
public:
    explicit NumberedPath(std::string path);

    /// The name that has its turn; at first the path itself.
    [[nodiscard]] const std::string& path() const noexcept { return _path; }
    /// Goes on to the next name.
    void next();
    /// Goes on to the first name at which nothing stands, this one included; links are followed. Whether it is still
    /// free later is another question. Numbers that an earlier search of this process found taken are not looked at
    /// again, so that many outputs of one name cost no more than many of different names.
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
