#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace brackwater {

/// A regular expression of the desktop platform (Perl-like, Unicode), whose anchors match at line ends.
class RegularExpression {
public:
    /// Raises a failed check if the pattern does not compile.
    explicit RegularExpression(std::string_view pattern);
    ~RegularExpression();
    RegularExpression(const RegularExpression&) = delete;
    RegularExpression& operator=(const RegularExpression&) = delete;

    /// A match, in bytes of the text.
    struct Range {
        std::size_t location;
        std::size_t length;

        friend bool operator==(const Range&, const Range&) = default;
    };
    /// All matches from left to right, without overlaps. An invalid UTF-8 byte matches like U+FFFD.
    [[nodiscard]] std::vector<Range> matchesInString(std::string_view text) const;

private:
    struct Compiled;
    std::unique_ptr<Compiled> _compiled;
};

} // namespace brackwater
