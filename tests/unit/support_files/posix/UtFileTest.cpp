#include "files/UtFile.h"

#include "unit/Environment.h"
#include "unit/support_files/TestFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

// Links and pipes are POSIX's, and so is a folder for temporary files without a user.

namespace {

TEST(UtIsFileOnPosix, FollowsLinksAndKnowsPipes)
{
    const TestFolder folder;
    folder.MakeFile("file");
    folder.MakeFolder("folder");
    std::filesystem::create_symlink("file", folder / "link-to-file");
    std::filesystem::create_symlink("folder", folder / "link-to-folder");
    std::filesystem::create_symlink("nowhere", folder / "link-to-nothing");
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    const struct
    {
        const char* name;
        bool isFile, isFolder;
    } rows[] = {{"link-to-file", true, false},
                {"link-to-folder", false, true},
                {"link-to-nothing", false, false},
                {"pipe", false, false}};
    for (const auto& row : rows) {
        EXPECT_EQ(UtIsFile(Written(folder / row.name)) != 0, row.isFile) << row.name;
        EXPECT_EQ(UtIsDir(Written(folder / row.name)) != 0, row.isFolder) << row.name;
    }
}

TEST(UtGetTempDirOnPosix, EndsWithABackslash)
{
    const Environment variable("TMPDIR", nullptr);
    EXPECT_EQ(UtGetTempDir().View(), "\\tmp\\");
    EXPECT_NE(UtIsDir(UtGetTempDir()), 0);
}

} // namespace
