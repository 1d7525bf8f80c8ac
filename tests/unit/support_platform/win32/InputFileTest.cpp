#include "platform/InputFile.h"

#include "platform/win32/WinApi.h"
#include "unit/NewFolder.h"

#include <gtest/gtest.h>

#include <io.h>

namespace {

TEST(InputFileOfWindows, IsFoundByANameInTheAnsiCodePage)
{
    if (GetACP() == CP_UTF8)
        GTEST_SKIP() << "the ANSI code page is UTF-8";
    const NewFolder folder;
    std::ofstream(folder / "gr\xC3\xB6n") << "content";
    std::FILE* const file = platform::OpenInputFile((folder.Path().string() + "\\gr\xF6n").c_str());
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(std::fgetc(file), 'c');
    EXPECT_EQ(std::fclose(file), 0);
}

TEST(InputFileOfWindows, IsNotInheritedByOtherPrograms)
{
    const NewFolder folder;
    std::ofstream(folder / "file") << "content";
    std::FILE* const file = platform::OpenInputFile(Utf8(folder / "file").c_str());
    ASSERT_NE(file, nullptr);
    DWORD flags = HANDLE_FLAG_INHERIT;
    EXPECT_TRUE(GetHandleInformation(reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(file))), &flags));
    EXPECT_EQ(flags & HANDLE_FLAG_INHERIT, 0U);
    EXPECT_EQ(std::fclose(file), 0);
}

} // namespace
