#include "platform/PathRules.h"

#include "unit/Environment.h"
#include "unit/NewFolder.h"

#include <gtest/gtest.h>

namespace {

TEST(SystemPathRulesOfWindows, SeparateWithBackslashesAndIgnoreTheCase)
{
    EXPECT_EQ(platform::SystemPathRules().separator, '\\');
    EXPECT_TRUE(platform::SystemPathRules().ignoresCase);
    EXPECT_TRUE(platform::SystemPathRules().limitsNames);
}

TEST(TempDirectoryOfWindows, IsThatOfTheVariableTmp)
{
    const NewFolder folder;
    const Environment variable("TMP", Utf8(folder.Path()).c_str());
    EXPECT_EQ(platform::TempDirectory(), Utf8(folder.Path()) + "\\");
}

TEST(TempDirectoryOfWindows, IsAFolderOfTheUserWithoutAChoice)
{
    const Environment variable("TMP", nullptr);
    const Environment otherVariable("TEMP", nullptr);
    EXPECT_EQ(platform::TempDirectory().substr(1, 2), ":\\");
    EXPECT_TRUE(std::filesystem::is_directory(platform::TempDirectory()));
}

TEST(TempDirectoryOfWindows, MayBeLongerThanMostPaths)
{
    const std::string folder = "C:\\" + std::string(150, 'x') + "\\" + std::string(150, 'y');
    const Environment variable("TMP", folder.c_str());
    EXPECT_EQ(platform::TempDirectory(), folder + "\\");
}

TEST(TempDirectoryOfWindows, IsThatOfTheNextVariableWhereOneIsMissing)
{
    const Environment variable("TMP", nullptr);
    const Environment otherVariable("TEMP", "C:\\second");
    EXPECT_EQ(platform::TempDirectory(), "C:\\second\\");
}

TEST(TempDirectoryOfWindows, IsThatOfWindowsWithoutAnyVariable)
{
    const Environment variable("TMP", nullptr);
    const Environment otherVariable("TEMP", nullptr);
    const Environment lastVariable("USERPROFILE", nullptr);
    EXPECT_EQ(platform::TempDirectory(), "C:\\windows\\");
}

TEST(TempDirectoryOfWindows, IsInUtf8)
{
    const NewFolder folder;
    const std::string umlaut = Utf8(folder / "M\xC3\xBCller \xCE\xB1");
    std::filesystem::create_directory(folder / "M\xC3\xBCller \xCE\xB1");
    const Environment variable("TMP", umlaut.c_str());
    EXPECT_EQ(platform::TempDirectory(), umlaut + "\\");
}

} // namespace
