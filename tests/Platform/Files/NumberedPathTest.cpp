#include "Platform/Files/NumberedPath.h"

#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace brackwater {
namespace {

std::string firstFree(const std::string& path) {
    NumberedPath numbered(path);
    numbered.findFree();
    return numbered.path();
}

TEST(NumberedPath, FirstFreeNameKeepsTheExtensionAsWritten) {
    const test::TempFolder folder;
    EXPECT_EQ(firstFree(folder.path("free.mpp")), folder.path("free.mpp"));
    const std::string upper = folder.write("a.b.MPP", "");
    EXPECT_EQ(firstFree(upper), folder.path("a.b-1.MPP"));
    EXPECT_EQ(firstFree(upper), folder.path("a.b-1.MPP")) << "nothing was put there";
    folder.makeFolder("a.b-1.MPP");
    folder.write("a.b-3.MPP", "");
    EXPECT_EQ(firstFree(upper), folder.path("a.b-2.MPP"));
    NumberedPath numbered(upper);
    numbered.findFree();
    numbered.next();
    EXPECT_EQ(numbered.path(), folder.path("a.b-3.MPP"));
    numbered.findFree();
    EXPECT_EQ(numbered.path(), folder.path("a.b-4.MPP"));
    std::filesystem::remove(upper);
    EXPECT_EQ(firstFree(upper), upper);
}

} // namespace
} // namespace brackwater
