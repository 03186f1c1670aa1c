#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>

namespace brackwater::test {

TempFolder::TempFolder() : _path(testing::TempDir() + "brackwater-XXXXXX") {
    if (mkdtemp(_path.data()) == nullptr)
        throw std::runtime_error("no folder for temporary files: " + _path);
}

TempFolder::~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(_path, ignored);
}

std::string TempFolder::path(std::string_view entry) const { return _path + "/" + std::string(entry); }

std::string TempFolder::write(std::string_view entry, std::string_view bytes) const {
    const std::string file = path(entry);
    std::filesystem::create_directories(std::filesystem::path(file).parent_path());
    std::ofstream(file, std::ios::binary) << bytes;
    return file;
}

std::string TempFolder::makeFolder(std::string_view entry) const {
    std::filesystem::create_directories(path(entry));
    return path(entry);
}

bool TempFolder::has(std::string_view entry) const { return std::filesystem::exists(path(entry)); }

std::string TempFolder::read(std::string_view entry) const {
    std::ifstream file(path(entry), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

} // namespace brackwater::test
