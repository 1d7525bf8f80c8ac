#include "platform/CopyFile.h"

#include "platform/win32/WinApi.h"
#include "unit/support_platform/FolderFixture.h"

namespace {

using CopyToNewFileOfWindows = FolderTest;

TEST_F(CopyToNewFileOfWindows, CarriesTheAttributeOfAProtectedFile)
{
    MakeFile("from");
    ASSERT_TRUE(SetFileAttributesW(Path("from").c_str(), FILE_ATTRIBUTE_READONLY));
    EXPECT_TRUE(platform::CopyToNewFile(Native("from"), Native("to")));
    EXPECT_NE(GetFileAttributesW(Path("to").c_str()) & FILE_ATTRIBUTE_READONLY, 0U);
    for (const char* const name : {"from", "to"})
        SetFileAttributesW(Path(name).c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(CopyToNewFileOfWindows, LeavesNothingBehindASourceThatAnotherProgramHasForItself)
{
    MakeFile("from");
    const HANDLE file = CreateFileW(Path("from").c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    EXPECT_FALSE(platform::CopyToNewFile(Native("from"), Native("to")));
    CloseHandle(file);
    EXPECT_FALSE(fs::exists(Path("to")));
}

} // namespace
