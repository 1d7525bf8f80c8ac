#include "files/RemoveFile.h"

#include "platform/win32/WinApi.h"
#include "unit/support_files/TestFolder.h"

#include <gtest/gtest.h>

namespace {

/// The process reads paths in the OEM code page, as programs of the console may want it.
class OemPaths
{
public:
    OemPaths() { SetFileApisToOEM(); }
    ~OemPaths() { SetFileApisToANSI(); }
    OemPaths(const OemPaths&) = delete;
    OemPaths& operator=(const OemPaths&) = delete;
};

TEST(RemoveFileOfWindows, TakesAnUmlautWhereTheProcessReadsPathsInTheOemCodePage)
{
    const TestFolder folder;
    const std::filesystem::path file = folder.MakeFile("gr\xC3\xB6\xC3\x9F"
                                                       "er");
    const OemPaths oem;
    EXPECT_TRUE(files::RemoveFile(Written(file)));
    EXPECT_EQ(GetFileAttributesW(file.c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST(RemoveFileOfWindows, LeavesAWriteProtectedFile)
{
    const TestFolder folder;
    const std::filesystem::path file = folder.MakeFile("file");
    ASSERT_TRUE(SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY));
    EXPECT_FALSE(files::RemoveFile(Written(file)));
    EXPECT_TRUE(SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL));
    EXPECT_TRUE(files::RemoveFile(Written(file)));
}

} // namespace
