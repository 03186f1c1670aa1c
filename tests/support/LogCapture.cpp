#include "support/LogCapture.h"

#include <algorithm>

namespace brackwater::test {

std::string LogCapture::joined() const {
    std::string text;
    for (const auto& line : _lines)
        text += line + "\n";
    return text;
}

bool LogCapture::contains(std::string_view text) const {
    return std::any_of(_lines.begin(), _lines.end(),
                       [text](const std::string& line) { return line.find(text) != std::string::npos; });
}

} // namespace brackwater::test
