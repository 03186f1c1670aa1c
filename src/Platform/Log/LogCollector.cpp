#include "Platform/Log/LogCollector.h"

#include <utility>

namespace brackwater {

void CollectedLines::log() const { logLines(_text, _sizes); }

void LogCollector::receive(std::string_view text) {
    _lines._text += text;
    _lines._sizes.push_back(text.size());
}

char* LogCollector::begin(std::size_t size) {
    if (_reader != nullptr)
        return nullptr; // it has to be asked whether it wants the line
    const std::size_t place = _lines._text.size();
    _lines._text.resize(place + size);
    _lines._sizes.push_back(size);
    return _lines._text.data() + place;
}

CollectedLines LogCollector::take() noexcept { return std::exchange(_lines, {}); }

} // namespace brackwater
