#include "Values.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace brackwater::inspect {

namespace {

constexpr std::size_t kDeepestGroup = 1000;
constexpr unsigned kUsualCodePage = 1252;

/// Takes the text out of RTF: control words are dropped, groups that hold no text of the document are left out.
class RtfReader {
public:
    explicit RtfReader(std::string_view rtf) : _rtf(rtf) {}

    std::string text() {
        while (_at < _rtf.size())
            step();
        flush();
        const auto end = _text.find_last_not_of(" \r\n\t");
        _text.erase(end == std::string::npos ? 0 : end + 1);
        return std::move(_text);
    }

private:
    void step() {
        const char c = _rtf[_at++];
        if (c == '{') {
            _hidden.push_back(hidden());
            if (_hidden.size() > kDeepestGroup)
                _at = _rtf.size();
        } else if (c == '}') {
            if (_hidden.size() > 1)
                _hidden.pop_back();
        } else if (c == '\\') {
            control();
        } else if (c != '\r' && c != '\n') {
            put(c);
        }
    }

    void control() {
        if (_at >= _rtf.size())
            return;
        const char c = _rtf[_at];
        if (std::isalpha(static_cast<unsigned char>(c)) != 0)
            return word();
        ++_at;
        if (c == '\'')
            hexCharacter();
        else if (c == '*')
            hide();
        else if (c == '~')
            put(' ');
        else if (c == '\\' || c == '{' || c == '}')
            put(c);
    }

    void hexCharacter() {
        const auto digit = [this]() -> int {
            if (_at >= _rtf.size())
                return -1;
            const auto c = static_cast<unsigned char>(_rtf[_at]);
            if (std::isxdigit(c) == 0)
                return -1;
            ++_at;
            return std::isdigit(c) != 0 ? c - '0' : std::tolower(c) - 'a' + 10;
        };
        const int high = digit(), low = high < 0 ? -1 : digit();
        if (low >= 0)
            put(static_cast<char>(high * 16 + low));
    }

    void word() {
        const std::size_t start = _at;
        while (_at < _rtf.size() && std::isalpha(static_cast<unsigned char>(_rtf[_at])) != 0)
            ++_at;
        const std::string_view name = _rtf.substr(start, _at - start);
        const long number = parameter();
        if (_at < _rtf.size() && _rtf[_at] == ' ')
            ++_at;
        apply(name, number);
    }

    long parameter() {
        const bool negative = _at < _rtf.size() && _rtf[_at] == '-';
        if (negative)
            ++_at;
        long number = 0;
        while (_at < _rtf.size() && std::isdigit(static_cast<unsigned char>(_rtf[_at])) != 0) {
            number = std::min(number * 10 + (_rtf[_at] - '0'), 1'000'000L);
            ++_at;
        }
        return negative ? -number : number;
    }

    void apply(std::string_view name, long number) {
        constexpr std::array<std::string_view, 8> hiddenGroups{"fonttbl", "colortbl", "stylesheet", "info",
                                                               "pict",    "object",   "header",     "footer"};
        if (std::ranges::find(hiddenGroups, name) != hiddenGroups.end())
            hide();
        else if (name == "par" || name == "line")
            put('\n');
        else if (name == "tab")
            put('\t');
        else if (name == "ansicpg")
            _codePage = static_cast<unsigned>(std::max(number, 0L));
        else if (name == "u")
            unicode(number);
    }

    // A character by its number, followed by one that stands for it where it cannot be shown. Characters beyond 16 bits
    // come as two surrogates.
    void unicode(long number) {
        flush();
        const auto unit = static_cast<std::uint32_t>(number < 0 ? number + 0x10000 : number);
        const bool isSecondHalf = unit >= 0xDC00 && unit <= 0xDFFF && _firstHalf != 0;
        const std::uint32_t character = isSecondHalf ? 0x10000 + ((_firstHalf - 0xD800) << 10) + (unit - 0xDC00) : unit;
        _firstHalf = unit >= 0xD800 && unit <= 0xDBFF ? unit : 0;
        if (!hidden() && _firstHalf == 0)
            appendUtf8(_text, character);
        if (_at < _rtf.size() && _rtf[_at] == '\\' && _rtf.substr(_at).starts_with("\\'"))
            _at = std::min(_at + 4, _rtf.size());
        else if (_at < _rtf.size() && _rtf[_at] == '?')
            ++_at;
    }

    [[nodiscard]] bool hidden() const { return _hidden.back(); }
    void hide() { _hidden.back() = true; }
    void put(char c) {
        if (!hidden())
            _pending.push_back(c);
    }
    void flush() {
        _text += fromCodePage(_pending, _codePage);
        _pending.clear();
    }

    std::string_view _rtf;
    std::size_t _at = 0;
    std::vector<bool> _hidden{false}; ///< for each open group whether its text is left out
    unsigned _codePage = kUsualCodePage;
    std::uint32_t _firstHalf = 0; ///< a surrogate that waits for its second half
    std::string _pending;         ///< bytes in the code page
    std::string _text;
};

} // namespace

std::string textOfRtf(ByteView rtf) {
    const auto bytes = rtf.span();
    const std::string raw(bytes.begin(), std::ranges::find(bytes, std::uint8_t{0}));
    if (!raw.starts_with("{\\rtf"))
        return fromCodePage(raw, kUsualCodePage);
    return RtfReader(raw).text();
}

} // namespace brackwater::inspect
