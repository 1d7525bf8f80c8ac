#include "files/RemoveFile.h"

#include "unit/support_files/TestFolder.h"

#include <gtest/gtest.h>

namespace fs = std::filesystem;

namespace {

TEST(RemoveFileOnPosix, RemovesALinkAndNotWhatItNames)
{
    const TestFolder folder;
    const fs::path target = folder.MakeFolder("target");
    fs::create_symlink(target, folder / "link");
    EXPECT_TRUE(files::RemoveFile(Written(folder / "link")));
    EXPECT_TRUE(fs::exists(target));
}

} // namespace
