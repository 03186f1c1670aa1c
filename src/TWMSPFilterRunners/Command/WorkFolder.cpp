#include "TWMSPFilterRunners/Command/WorkFolder.h"

#include <fmt/format.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace brackwater {

void WorkFolder::makeIn(const std::string& outputFolder) {
    if (!_path.empty() && _outputFolder == outputFolder)
        return;
    remove();
    std::string path = outputFolder + "/.brackwater-XXXXXX";
    if (mkdtemp(path.data()) == nullptr)
        throw std::system_error(errno, std::generic_category(),
                                fmt::format("cannot create files in '{}'", outputFolder));
    _path = std::move(path);
    _outputFolder = outputFolder;
}

void WorkFolder::remove() noexcept {
    std::error_code ignored;
    if (!_path.empty())
        std::filesystem::remove_all(_path, ignored);
    _path.clear();
}

} // namespace brackwater
