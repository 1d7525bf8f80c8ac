#include "platform/OutputFile.h"

#include "platform/win32/WinApi.h"
#include "unit/NewFolder.h"

#include <gtest/gtest.h>

namespace {

constexpr DWORD everybody = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

TEST(OutputFileOfWindows, CannotBeReadByOthersUntilItIsClosed)
{
    const NewFolder folder;
    const std::filesystem::path path = folder / "file";
    const auto read = [&] {
        const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, everybody, nullptr, OPEN_EXISTING, 0, nullptr);
        const DWORD error = file == INVALID_HANDLE_VALUE ? GetLastError() : 0;
        if (error == 0)
            CloseHandle(file);
        return error;
    };
    const intptr_t file = platform::CreateOutputFile(Utf8(path));
    ASSERT_NE(file, platform::noFile);
    EXPECT_EQ(read(), static_cast<DWORD>(ERROR_SHARING_VIOLATION));
    EXPECT_TRUE(platform::CloseOutputFile(file));
    EXPECT_EQ(read(), 0U);
}

} // namespace
