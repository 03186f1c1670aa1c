#include "Platform/Files/FileURL.h"

#include "Platform/Files/PathText.h"

#include <filesystem>
#include <system_error>

namespace brackwater {

namespace {

constexpr std::string_view kFileScheme = "file://";

// Path bytes that need no escape in a URL.
bool standsForItself(char byte) {
    constexpr std::string_view marks = "-._~!$&'()*+,=:@/";
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || (byte >= '0' && byte <= '9') ||
           marks.find(byte) != std::string_view::npos;
}

std::string percentEncoded(std::string_view path) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    text.reserve(path.size());
    for (const char byte : path) {
        if (standsForItself(byte)) {
            text += byte;
            continue;
        }
        const auto value = static_cast<unsigned char>(byte);
        text += '%';
        text += digits[value >> 4];
        text += digits[value & 0x0F];
    }
    return text;
}

// Value of a hexadecimal digit, or -1.
int hexValue(char byte) {
    if (byte >= '0' && byte <= '9')
        return byte - '0';
    if (byte >= 'A' && byte <= 'F')
        return byte - 'A' + 10;
    if (byte >= 'a' && byte <= 'f')
        return byte - 'a' + 10;
    return -1;
}

std::string percentDecoded(std::string_view text) {
    std::string path;
    path.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        const int high = text[at] == '%' && at + 2 < text.size() ? hexValue(text[at + 1]) : -1;
        const int low = high < 0 ? -1 : hexValue(text[at + 2]);
        if (low < 0) {
            path += text[at];
            continue;
        }
        path += static_cast<char>(high * 16 + low);
        at += 2;
    }
    return path;
}

std::string withoutTrailingSlashes(std::string path) {
    while (path.size() > 1 && path.back() == '/')
        path.pop_back();
    return path;
}

// A URL resolves the "." and ".." of a relative path against its base.
std::string absolutePath(std::string_view path) {
    if (path.starts_with('/'))
        return withoutTrailingSlashes(std::string(path));
    std::error_code fault;
    std::string folder = std::filesystem::current_path(fault).string();
    return stringByStandardizingPath(folder.append("/").append(path));
}

} // namespace

FileURL FileURL::fileURLWithPath(std::string_view path, bool isDirectory) {
    FileURL url;
    url._isFile = true;
    url._path = absolutePath(path);
    url._absoluteString.append(kFileScheme).append(percentEncoded(url._path));
    if (isDirectory && !url._path.ends_with('/'))
        url._absoluteString += '/';
    return url;
}

FileURL FileURL::urlWithString(std::string_view text) {
    FileURL url;
    url._absoluteString = text;
    if (lowercaseString(text.substr(0, kFileScheme.size())) == kFileScheme) {
        const std::string_view behindScheme = text.substr(kFileScheme.size());
        const std::size_t slash = behindScheme.find('/'); // after the host, which is empty or this machine
        url._isFile = true;
        if (slash != std::string_view::npos)
            url._path = withoutTrailingSlashes(percentDecoded(behindScheme.substr(slash)));
    }
    return url;
}

FileURL FileURL::urlByAppendingPathComponent(std::string_view component, bool isDirectory) const {
    if (_isFile)
        return fileURLWithPath(stringByAppendingPathComponent(_path, component), isDirectory);
    std::string text = _absoluteString;
    if (!text.ends_with('/'))
        text += '/';
    text.append(percentEncoded(component)).append(isDirectory ? "/" : "");
    return urlWithString(text);
}

} // namespace brackwater
