#include "MPPXMLDOMFilter/Container/MPPTemplateFormat.h"

#include "MPPXMLDOMFilter/Container/MPPFormatReader.h"
#include "Platform/Files/FileIdentity.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace brackwater {

namespace {

constexpr const char* kCompObj = "\x01"
                                 "CompObj";
/// Offset of the first text in "\x01CompObj", after a class id and other bytes that do not matter here.
constexpr std::size_t kUserType = 28;
constexpr std::string_view kUserTypeOfFormat4 = "Microsoft Project 4.0";

struct FormatName {
    std::string_view name;
    int version;
};

constexpr std::array<FormatName, 9> kFormatNames = {{
    {"MSProject.MPP9", 1},
    {"MSProject.MPT9", 1},
    {"MSProject.GLOBAL9", 1},
    {"MSProject.MPP12", 2},
    {"MSProject.MPT12", 2},
    {"MSProject.GLOBAL12", 2},
    {"MSProject.MPP14", 3},
    {"MSProject.MPT14", 3},
    {"MSProject.GLOBAL14", 3},
}};

/// A text preceded by its 32-bit length, including the NUL.
struct CountedText {
    std::string_view text; ///< up to the NUL
    std::size_t end = 0;   ///< offset of the end in the stream
};

/// Nothing if the stream ends too early: lengths in a template are untrusted.
std::optional<CountedText> countedTextAt(std::span<const std::uint8_t> bytes, std::size_t offset) {
    if (offset > bytes.size() || bytes.size() - offset < 4)
        return std::nullopt;
    std::uint32_t length = 0;
    for (std::size_t i = 4; i-- > 0;)
        length = length << 8 | bytes[offset + i];
    const auto rest = bytes.subspan(offset + 4);
    if (rest.size() < length)
        return std::nullopt;
    const std::string_view whole(reinterpret_cast<const char*>(rest.data()), length);
    return CountedText{whole.substr(0, whole.find('\0')), offset + 4 + length};
}

int versionNamedBy(std::span<const std::uint8_t> compObj) {
    const auto userType = countedTextAt(compObj, kUserType);
    if (!userType || userType->text == kUserTypeOfFormat4)
        return 0;
    const auto format = countedTextAt(compObj, userType->end);
    if (!format)
        return 0;
    const auto found = std::find_if(kFormatNames.begin(), kFormatNames.end(),
                                    [&](const FormatName& known) { return known.name == format->text; });
    return found == kFormatNames.end() ? 0 : found->version;
}

int readVersion(const FileURL& url) {
    MPPFormatReader root(url);
    if (!root.open())
        return 0;
    const auto compObj = root.createReaderForChildWithName(kCompObj);
    if (!compObj)
        return 0;
    const auto bytes = compObj->readAll();
    return bytes ? versionNamedBy(*bytes) : 0;
}

/// The template whose version was read last. Each export asks twice, and those of a list mostly have one template.
struct KnownTemplate {
    FileIdentity identity;
    int version = 0;
};
constinit thread_local KnownTemplate lastTemplate;

} // namespace

int formatVersionOfTemplateAtUrl(const FileURL& url) {
    const auto identity = FileIdentity::ofFile(url.path());
    if (identity && *identity == lastTemplate.identity) {
        MPPFormatReader::logOpening(url);
        return lastTemplate.version;
    }
    const int version = readVersion(url);
    if (version != 0 && identity && identity->isSettled())
        lastTemplate = {*identity, version};
    return version;
}

} // namespace brackwater
