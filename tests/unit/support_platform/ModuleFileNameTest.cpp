#include "platform/ModuleFileName.h"

#include <gtest/gtest.h>

namespace {

TEST(ModuleFileName, IsThePathOfThisProgram)
{
    const std::string path = platform::ModuleFileName();
    EXPECT_EQ(path.substr(0, 1), "/");
    EXPECT_EQ(path.substr(path.rfind('/') + 1), "unit_support_platform");
}

} // namespace
