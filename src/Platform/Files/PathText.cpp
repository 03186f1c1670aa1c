#include "Platform/Files/PathText.h"

#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/stringpiece.h>

#include <algorithm>
#include <cstdlib>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace brackwater {

namespace {

std::string_view withoutTrailingSlashes(std::string_view path) {
    while (path.size() > 1 && path.back() == '/')
        path.remove_suffix(1);
    return path;
}

// Start of the last component; the path has no trailing slash.
std::size_t startOfLastComponent(std::string_view path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string_view::npos || path.size() == 1 ? 0 : slash + 1;
}

// The point of the path's extension. A point at the start of the component marks a hidden file, and a point at its end
// has nothing after it: neither makes an extension.
std::size_t pointOfExtension(std::string_view path) {
    const std::size_t point = path.rfind('.');
    if (point == std::string_view::npos || point <= startOfLastComponent(path) || point + 1 == path.size())
        return std::string_view::npos;
    return point;
}

std::string withoutRepeatedSlashes(std::string_view path) {
    std::string text;
    text.reserve(path.size());
    for (const char byte : path)
        if (byte != '/' || text.empty() || text.back() != '/')
            text += byte;
    return std::string(withoutTrailingSlashes(text));
}

std::string folderOf(const passwd* user) { return user != nullptr && user->pw_dir != nullptr ? user->pw_dir : ""; }

// Empty if the machine does not know the user.
std::string homeFolderOf(const std::string& user) {
    if (!user.empty())
        return folderOf(getpwnam(user.c_str()));
    return homeFolder();
}

std::string expandingTilde(std::string_view path) {
    if (!path.starts_with('~'))
        return std::string(path);
    const std::size_t end = std::min(path.find('/'), path.size());
    std::string home = homeFolderOf(std::string(path.substr(1, end - 1)));
    if (home.empty())
        return std::string(path);
    return home.append(path.substr(end));
}

std::vector<std::string_view> componentsOf(std::string_view path) {
    std::vector<std::string_view> components;
    while (!path.empty()) {
        const std::size_t end = std::min(path.find('/'), path.size());
        if (end != 0)
            components.push_back(path.substr(0, end));
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return components;
}

} // namespace

std::string homeFolder() {
    const char* home = std::getenv("HOME");
    return home != nullptr && *home != '\0' ? home : folderOf(getpwuid(getuid()));
}

std::string pathExtension(std::string_view path) {
    path = withoutTrailingSlashes(path);
    const std::size_t point = pointOfExtension(path);
    return point == std::string_view::npos ? std::string() : std::string(path.substr(point + 1));
}

std::string lastPathComponent(std::string_view path) {
    path = withoutTrailingSlashes(path);
    return std::string(path.substr(startOfLastComponent(path)));
}

std::string stringByDeletingPathExtension(std::string_view path) {
    path = withoutTrailingSlashes(path);
    return std::string(path.substr(0, pointOfExtension(path)));
}

std::string stringByDeletingLastPathComponent(std::string_view path) {
    path = withoutTrailingSlashes(path);
    const std::size_t slash = path.rfind('/');
    if (slash == std::string_view::npos)
        return {};
    return std::string(withoutTrailingSlashes(path.substr(0, slash + 1)));
}

std::string stringByAppendingPathComponent(std::string_view path, std::string_view component) {
    if (path.empty())
        return withoutRepeatedSlashes(component);
    std::string text(path);
    text += '/';
    return withoutRepeatedSlashes(text.append(component));
}

std::string stringByAppendingPathExtension(std::string_view path, std::string_view extension) {
    path = withoutTrailingSlashes(path);
    std::string text(path);
    if (path.empty() || path == "/") // no component that could have an extension
        return text;
    text += '.';
    return text.append(extension);
}

std::string stringByStandardizingPath(std::string_view path) {
    const std::string expanded = expandingTilde(path);
    const bool absolute = expanded.starts_with('/');
    std::vector<std::string_view> kept;
    for (const std::string_view component : componentsOf(expanded)) {
        if (component == ".")
            continue;
        const bool goesUp = component == "..";
        if (goesUp && !kept.empty() && kept.back() != "..")
            kept.pop_back();
        else if (!goesUp || !absolute)
            kept.push_back(component);
    }
    std::string text(absolute ? "/" : "");
    for (const std::string_view component : kept)
        text.append(text.empty() || text == "/" ? "" : "/").append(component);
    return text.empty() && !expanded.empty() ? "." : text;
}

std::string lowercaseString(std::string_view text) {
    std::string folded;
    icu::StringByteSink<std::string> sink(&folded);
    UErrorCode status = U_ZERO_ERROR;
    icu::CaseMap::utf8ToLower("", 0, icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())), sink,
                              nullptr, status);
    return U_SUCCESS(status) ? folded : std::string(text);
}

PathKind kindOfPath(const std::string& path) {
    // The system would use only the part before a zero byte.
    if (path.find('\0') != std::string::npos)
        return PathKind::Missing;
    struct stat status {};
    if (stat(path.c_str(), &status) != 0)
        return PathKind::Missing;
    return S_ISDIR(status.st_mode) ? PathKind::Directory : PathKind::File;
}

} // namespace brackwater
