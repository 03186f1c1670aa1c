#include "Platform/Files/NumberedPath.h"

#include "Platform/Files/PathText.h"

#include <fmt/format.h>

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace brackwater {

namespace {

/// By path: the last number tried.
std::unordered_map<std::string, std::int64_t>& lastNumbers() {
    static std::unordered_map<std::string, std::int64_t> numbers;
    return numbers;
}

bool isTaken(const std::string& path) { return kindOfPath(path) != PathKind::Missing; }

} // namespace

NumberedPath::NumberedPath(std::string path)
    : _original(std::move(path)), _stem(stringByDeletingPathExtension(_original)), _extension(pathExtension(_original)),
      _path(_original) {}

void NumberedPath::next() { setNumber(_number + 1); }

void NumberedPath::findFree() {
    if (!isTaken(_path))
        return;
    std::int64_t& last = lastNumbers()[_original];
    for (setNumber(std::max(_number + 1, last)); isTaken(_path);)
        next();
    last = _number;
}

void NumberedPath::setNumber(std::int64_t number) {
    _number = number;
    _path = fmt::format("{}-{}.{}", _stem, number, _extension);
}

} // namespace brackwater
