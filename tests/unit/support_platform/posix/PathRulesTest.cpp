#include "platform/PathRules.h"

#include "unit/Environment.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <unistd.h>

namespace {

TEST(PathRulesOfPosix, SeparatesWithSlashesAndHeedsTheCase)
{
    EXPECT_EQ(platform::SystemPathRules().separator, '/');
    EXPECT_FALSE(platform::SystemPathRules().ignoresCase);
    EXPECT_FALSE(platform::SystemPathRules().limitsNames);
}

TEST(TempDirectoryOfPosix, IsWhatTheUserChose)
{
    const std::string chosen = std::filesystem::temp_directory_path() / ("mydb-temp-" + std::to_string(getpid()));
    std::filesystem::create_directory(chosen);
    const Environment variable("TMPDIR", chosen.c_str());
    EXPECT_EQ(platform::TempDirectory(), chosen);
    std::filesystem::remove(chosen);
    EXPECT_EQ(platform::TempDirectory(), "/tmp") << "the chosen one is gone";
}

TEST(TempDirectoryOfPosix, IsTheSystemsWithoutAUsableChoice)
{
    for (const char* const value :
         {static_cast<const char*>(nullptr), "", "relative", ".", "/no/such/folder", "/dev/null"}) {
        const Environment variable("TMPDIR", value);
        EXPECT_EQ(platform::TempDirectory(), "/tmp") << (value ? value : "unset");
    }
}

TEST(TempDirectoryOfPosix, IsNeverOneWithABackslashInItsName)
{
    const std::string chosen = std::filesystem::temp_directory_path() / ("mydb\\temp-" + std::to_string(getpid()));
    std::filesystem::create_directory(chosen);
    const Environment variable("TMPDIR", chosen.c_str());
    EXPECT_EQ(platform::TempDirectory(), "/tmp");
    std::filesystem::remove(chosen);
}

} // namespace
