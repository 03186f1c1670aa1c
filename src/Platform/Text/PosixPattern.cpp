#include "Platform/Text/PosixPattern.h"

#include "Platform/Values/Exception.h"

#include <array>
#include <clocale>
#include <regex.h>

namespace brackwater {
namespace {

/// Switches to the C locale during its lifetime, so that patterns match bytes whatever the process's locale.
class CLocale {
public:
    CLocale() : _before(uselocale(theCLocale())) {}
    ~CLocale() { uselocale(_before); }
    CLocale(const CLocale&) = delete;
    CLocale& operator=(const CLocale&) = delete;

private:
    static locale_t theCLocale() {
        static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
        return locale;
    }

    locale_t _before;
};

} // namespace

struct PosixPattern::Compiled {
    explicit Compiled(const char* pattern) {
        const CLocale locale;
        const int code = regcomp(&regex, pattern, REG_EXTENDED);
        if (code == 0)
            return;
        std::array<char, 256> text{};
        regerror(code, &regex, text.data(), text.size());
        failAssertion(fmt::format("Failed to compile reqular expression '{}': {}", pattern, text.data()));
    }
    ~Compiled() { regfree(&regex); }
    Compiled(const Compiled&) = delete;
    Compiled& operator=(const Compiled&) = delete;

    regex_t regex{};
};

PosixPattern::PosixPattern(const char* pattern) : _compiled(std::make_unique<Compiled>(pattern)) {}

PosixPattern::~PosixPattern() = default;

std::optional<PosixPattern::Match> PosixPattern::match(std::string_view text) const {
    const std::string terminated(text.substr(0, text.find('\0')));
    std::vector<regmatch_t> found(_compiled->regex.re_nsub + 1);
    const CLocale locale;
    if (regexec(&_compiled->regex, terminated.c_str(), found.size(), found.data(), 0) != 0)
        return std::nullopt;
    Match match;
    match.reserve(found.size());
    for (const regmatch_t& range : found) {
        if (range.rm_so < 0)
            match.emplace_back(std::nullopt);
        else
            match.emplace_back(Range{static_cast<std::size_t>(range.rm_so), static_cast<std::size_t>(range.rm_eo)});
    }
    return match;
}

std::string_view textOf(const std::optional<PosixPattern::Range>& range, std::string_view text) {
    return range ? text.substr(range->begin, range->end - range->begin) : std::string_view();
}

} // namespace brackwater
