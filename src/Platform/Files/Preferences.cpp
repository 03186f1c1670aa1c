#include "Platform/Files/Preferences.h"

#include "Platform/Files/PathText.h"
#include "Platform/Files/TextFile.h"
#include "Platform/Text/TextReadings.h"

#include <glib.h>

#include <cstdlib>
#include <memory>

namespace brackwater {

namespace {

constexpr const char* kGroup = "Preferences";
constexpr std::size_t kLongestFile = std::size_t{1} << 20;

// Looked up on each call, so that changes of the environment count.
std::string configurationFolder() {
    const char* folder = std::getenv("XDG_CONFIG_HOME");
    if (folder != nullptr && *folder == '/')
        return folder;
    return homeFolder() + "/.config";
}

} // namespace

Preferences::Preferences(std::string_view domain) : _path(pathOfDomain(domain)) {}

bool Preferences::boolForKey(const std::string& key) const {
    const auto text = bytesOfFile(_path, kLongestFile, FileKinds::Regular);
    if (!text)
        return false;
    const std::unique_ptr<GKeyFile, decltype(&g_key_file_free)> file(g_key_file_new(), &g_key_file_free);
    if (g_key_file_load_from_data(file.get(), text->data(), text->size(), G_KEY_FILE_NONE, nullptr) == FALSE)
        return false;
    const std::unique_ptr<char, decltype(&g_free)> value(g_key_file_get_value(file.get(), kGroup, key.c_str(), nullptr),
                                                         &g_free);
    return value != nullptr && boolValue(value.get());
}

std::string Preferences::pathOfDomain(std::string_view domain) {
    return stringByAppendingPathComponent(configurationFolder(), std::string(domain) + ".conf");
}

} // namespace brackwater
