#include "files/NativePath.h"

#include "unit/support_files/TestFolder.h"

#include <gtest/gtest.h>

namespace {

// The system itself takes names in any letter case, so they stay as they are written.
TEST(NativePathOfWindows, KeepsTheCaseAndLeavesItToTheSystem)
{
    const TestFolder folder;
    folder.MakeFile("Data/M\xC3\xBCller.txt");
    const std::string upper = Utf8(folder / "DATA") + "\\M\xC3\x9CLLER.TXT";
    EXPECT_EQ(files::NativePath(UtCString(upper, UT_ENCODING_UTF8)), upper);
    EXPECT_TRUE(std::filesystem::exists(std::u8string(upper.begin(), upper.end())));
}

TEST(NativePathOfWindows, TakesAPathOfAnyLength)
{
    const std::string name(100'000, 'x');
    EXPECT_EQ(files::NativePath(Ansi("/tmp/" + name)), "\\tmp\\" + name);
}

} // namespace
