#include "platform/win32/ReparsePoint.h"

#include <gtest/gtest.h>

namespace {

constexpr DWORD folder = FILE_ATTRIBUTE_DIRECTORY;
constexpr DWORD reparse = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;

// Values of tags: Wine cannot make reparse points.
TEST(IsLinkOfWindows, IsTrueForSymbolicLinksAndMountPoints)
{
    EXPECT_TRUE(platform::IsLink(reparse, IO_REPARSE_TAG_SYMLINK));
    EXPECT_TRUE(platform::IsLink(reparse, IO_REPARSE_TAG_MOUNT_POINT));
    EXPECT_TRUE(platform::IsLink(FILE_ATTRIBUTE_REPARSE_POINT, IO_REPARSE_TAG_SYMLINK));
    EXPECT_TRUE(platform::IsLink(reparse, 0)) << "the system does not tell";
}

TEST(IsLinkOfWindows, IsFalseForWhatIsKeptInACloudOrStoredInAnotherForm)
{
    constexpr DWORD cloud = 0x9000001A;
    constexpr DWORD deduplicated = 0x80000013;
    EXPECT_FALSE(platform::IsLink(reparse, cloud));
    EXPECT_FALSE(platform::IsLink(reparse, deduplicated));
    EXPECT_FALSE(platform::IsLink(folder, 0));
    EXPECT_FALSE(platform::IsLink(folder, IO_REPARSE_TAG_SYMLINK));
}

} // namespace
