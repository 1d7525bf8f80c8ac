#include "platform/ModuleFileName.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

TEST(ModuleFileName, IsThePathOfThisProgram)
{
    const std::string name = platform::ModuleFileName();
    const std::filesystem::path path = std::u8string(name.begin(), name.end());
    EXPECT_TRUE(path.is_absolute()) << name;
    EXPECT_TRUE(std::filesystem::is_regular_file(path)) << name;
    EXPECT_EQ(path.stem(), "unit_support_platform");
}

} // namespace
