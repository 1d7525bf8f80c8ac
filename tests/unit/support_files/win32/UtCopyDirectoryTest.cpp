#include "unit/support_files/TreeCopy.h"

#include "platform/win32/WinApi.h"

// What holds files back is Windows' own: attributes, and programs that have a file for themselves.

namespace {

namespace fs = std::filesystem;

TEST(UtCopyDirectoryOfWindows, TakesNamesThatTheAnsiCodePageLacks)
{
    const TestFolder folder;
    folder.MakeFile("from/M\xC3\xBCller/\xCE\xB1\xE6\x97\xA5.txt", "alpha");
    EXPECT_EQ(Copy(folder), 0);
    EXPECT_EQ(folder.Read("to/M\xC3\xBCller/\xCE\xB1\xE6\x97\xA5.txt"), "alpha");
}

TEST(UtCopyDirectoryOfWindows, FailsForAFileThatAnotherProgramHasForItself)
{
    const TestFolder folder;
    const fs::path file = folder.MakeFile("from/a");
    const HANDLE handle = CreateFileW(file.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(handle, INVALID_HANDLE_VALUE);
    EXPECT_NE(Copy(folder), 0);
    CloseHandle(handle);
    EXPECT_EQ(Names(folder / "to"), std::set<std::string>());
}

} // namespace
