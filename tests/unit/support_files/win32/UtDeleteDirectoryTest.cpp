#include "files/UtFile.h"

#include "files/DeletablePath.h"
#include "platform/win32/WinApi.h"
#include "unit/support_files/TestFolder.h"

#include <gtest/gtest.h>

// Drives and the attribute for write protection are Windows'.

namespace {

namespace fs = std::filesystem;

// The decision alone: a test that hands a root to the function itself would be costly to see fail.
TEST(IsDeletableOfWindows, RefusesEmptyPathsRootsAndDots)
{
    for (const char* const path : {"",
                                   "\\",
                                   "/",
                                   ".",
                                   "..",
                                   "C:",
                                   "c:",
                                   "C:\\",
                                   "C:/",
                                   "C:\\.",
                                   "C:\\windows\\..",
                                   "C:\\windows\\.",
                                   "\\windows\\..",
                                   "c:\\windows\\..\\",
                                   "C:\\\\",
                                   "C:\\...",
                                   "\\\\server\\share",
                                   "//server/share/",
                                   "\\\\server",
                                   "\\\\?\\C:",
                                   "\\\\?\\UNC\\server\\share",
                                   "\\\\.\\C:",
                                   "\\\\?\\unc\\server\\share",
                                   "\\\\.\\UNC\\server\\share",
                                   "\\\\.\\Global\\c:",
                                   "\\\\?\\Global\\unc\\server\\share",
                                   "\\\\?\\GLOBALROOT\\Device\\HarddiskVolume1",
                                   "\\\\?\\globalroot\\Device\\Mup\\server\\share",
                                   "C:\\windows\\...",
                                   "C:\\windows\\. ",
                                   "C:\\windows\\.. ",
                                   "C:\\windows\\ ",
                                   "...",
                                   " "})
        EXPECT_FALSE(files::IsDeletable(path)) << path;
    for (const char* const path : {"C:\\windows", "windows", "no such folder", "C:\\...x", "C:\\.hidden", "\\windows",
                                   "\\\\server\\share\\folder", "\\\\.\\unc\\server\\share\\folder",
                                   "\\\\?\\C:\\folder", "\\\\?\\UNC\\server\\share\\folder"})
        EXPECT_TRUE(files::IsDeletable(path)) << path;
}

TEST(UtDeleteDirectoryOfWindows, RemovesWriteProtectedFilesAndFolders)
{
    const TestFolder folder;
    const fs::path file = folder.MakeFile("tree/locked/file");
    for (const fs::path& path : {file, file.parent_path(), file.parent_path().parent_path()})
        ASSERT_TRUE(SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY));
    EXPECT_EQ(UtDeleteDirectory(Written(folder / "tree")), 0);
    EXPECT_FALSE(fs::exists(folder / "tree"));
}

TEST(UtDeleteDirectoryOfWindows, LeavesAFolderWhoseOwnNameIsReplacedByDotsAndBlanks)
{
    const TestFolder folder;
    folder.MakeFile("tree/inner/a");
    for (const char* const ending : {"\\...", "\\ ", "\\. ", "\\.. ", "\\.. \\"})
        EXPECT_NE(UtDeleteDirectory(UtCString(Utf8(folder / "tree/inner") + ending, UT_ENCODING_UTF8)), 0) << ending;
    EXPECT_TRUE(fs::exists(folder / "tree/inner/a"));
}

TEST(UtDeleteDirectoryOfWindows, DeletesATreeWhosePathIsLongerThanOtherFunctionsTake)
{
    const TestFolder folder;
    const std::wstring prefix = L"\\\\?\\";
    fs::path path = folder / "tree";
    for (int level = 0; level < 4; ++level) {
        ASSERT_TRUE(CreateDirectoryW((prefix + path.wstring()).c_str(), nullptr));
        path /= std::wstring(100, L'd');
    }
    ASSERT_TRUE(CreateDirectoryW((prefix + path.wstring()).c_str(), nullptr));
    EXPECT_EQ(UtDeleteDirectory(Written(path)), 0);
    EXPECT_EQ(GetFileAttributesW((prefix + path.wstring()).c_str()), INVALID_FILE_ATTRIBUTES);
    EXPECT_NE(GetFileAttributesW((prefix + path.parent_path().wstring()).c_str()), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(UtDeleteDirectory(Written(folder / "tree")), 0);
    EXPECT_FALSE(fs::exists(folder / "tree"));
}

TEST(UtDeleteDirectoryOfWindows, DeletesATreeByAPathInTheLongForm)
{
    const TestFolder folder;
    folder.MakeFile("tree/a");
    EXPECT_EQ(UtDeleteDirectory(UtCString("\\\\?\\" + Utf8(folder / "tree"), UT_ENCODING_UTF8)), 0);
    EXPECT_FALSE(fs::exists(folder / "tree"));
}

TEST(UtDeleteDirectoryOfWindows, FailsWhenSomethingIsLeft)
{
    const TestFolder folder;
    const fs::path file = folder.MakeFile("tree/file");
    const HANDLE handle = CreateFileW(file.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(handle, INVALID_HANDLE_VALUE);
    EXPECT_NE(UtDeleteDirectory(Written(folder / "tree")), 0);
    EXPECT_TRUE(fs::exists(file));
    CloseHandle(handle);
}

} // namespace
