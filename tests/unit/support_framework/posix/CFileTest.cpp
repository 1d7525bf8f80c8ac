#include "framework/CFile.h"

#include "unit/NewFolder.h"

#include <gtest/gtest.h>

namespace {

// Where others may look into a file that is being written.
TEST(CFileOnPosix, HoldsNothingBack)
{
    const NewFolder folder;
    CFile file;
    ASSERT_TRUE(file.Open(UtCString(Utf8(folder / "file"), UT_ENCODING_UTF8),
                          CFile::modeCreate | CFile::modeReadWrite | CFile::shareExclusive));
    file.Write("abc", 3);
    EXPECT_EQ(std::filesystem::file_size(folder / "file"), 3U);
    file.Write("d", 1);
    EXPECT_EQ(std::filesystem::file_size(folder / "file"), 4U);
}

} // namespace
