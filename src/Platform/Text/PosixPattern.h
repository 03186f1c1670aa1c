#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brackwater {

/// A POSIX extended regular expression in the C locale: a "." matches one byte. Matching is leftmost-longest.
class PosixPattern {
public:
    /// Raises the failed check "Failed to compile reqular expression '...': ..." if the pattern does not compile.
    explicit PosixPattern(const char* pattern);
    ~PosixPattern();
    PosixPattern(const PosixPattern&) = delete;
    PosixPattern& operator=(const PosixPattern&) = delete;

    /// A range of the text. Sub-matches that did not participate are absent.
    struct Range {
        std::size_t begin;
        std::size_t end;

        friend bool operator==(const Range&, const Range&) = default;
    };
    using Match = std::vector<std::optional<Range>>;
    /// The whole match and its groups, numbered as in the pattern. The text ends at its first NUL.
    [[nodiscard]] std::optional<Match> match(std::string_view text) const;

private:
    struct Compiled;
    std::unique_ptr<Compiled> _compiled;
};

/// The text of a sub-match; empty if it did not participate.
[[nodiscard]] std::string_view textOf(const std::optional<PosixPattern::Range>& range, std::string_view text);

} // namespace brackwater
