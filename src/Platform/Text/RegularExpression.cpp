#include "Platform/Text/RegularExpression.h"

#include "Platform/Values/Exception.h"

#include <unicode/regex.h>
#include <unicode/utext.h>

namespace brackwater {
namespace {

void expectSuccess(UErrorCode status, const char* what) {
    if (U_FAILURE(status))
        failAssertion(fmt::format("Failed to {} a regular expression: {}", what, u_errorName(status)));
}

/// ICU's view of a UTF-8 text: no copy, and positions are counted in bytes.
class TextView {
public:
    explicit TextView(std::string_view text) {
        UErrorCode status = U_ZERO_ERROR;
        utext_openUTF8(&_text, text.data(), static_cast<std::int64_t>(text.size()), &status);
        expectSuccess(status, "read the text of");
    }
    ~TextView() { utext_close(&_text); }
    TextView(const TextView&) = delete;
    TextView& operator=(const TextView&) = delete;

    UText* get() { return &_text; }

private:
    UText _text = UTEXT_INITIALIZER;
};

} // namespace

struct RegularExpression::Compiled {
    std::unique_ptr<icu::RegexPattern> pattern;
};

RegularExpression::RegularExpression(std::string_view pattern) : _compiled(std::make_unique<Compiled>()) {
    UErrorCode status = U_ZERO_ERROR;
    UParseError place;
    const auto text =
        icu::UnicodeString::fromUTF8(icu::StringPiece(pattern.data(), static_cast<std::int32_t>(pattern.size())));
    _compiled->pattern.reset(icu::RegexPattern::compile(text, UREGEX_MULTILINE, place, status));
    expectSuccess(status, "compile");
}

RegularExpression::~RegularExpression() = default;

std::vector<RegularExpression::Range> RegularExpression::matchesInString(std::string_view text) const {
    UErrorCode status = U_ZERO_ERROR;
    TextView view(text);
    const std::unique_ptr<icu::RegexMatcher> matcher(_compiled->pattern->matcher(status));
    expectSuccess(status, "run");
    matcher->reset(view.get());
    std::vector<Range> matches;
    while (matcher->find(status)) {
        const auto begin = static_cast<std::size_t>(matcher->start64(status));
        const auto end = static_cast<std::size_t>(matcher->end64(status));
        matches.push_back({begin, end - begin});
    }
    expectSuccess(status, "run");
    return matches;
}

} // namespace brackwater
