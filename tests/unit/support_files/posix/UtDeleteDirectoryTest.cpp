#include "files/UtFile.h"

#include "files/DeletablePath.h"
#include "unit/support_files/TestFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

// Links, pipes, permissions and one root for all are POSIX's.

namespace {

namespace fs = std::filesystem;
using namespace std::string_view_literals;

/// Runs the check in a process that has no right to ignore permissions. The check returns true for success.
template <class Check> bool HoldsWithoutPrivileges(const fs::path& folder, Check check)
{
    constexpr uid_t nobody = 65534;
    const pid_t child = fork();
    if (child == 0) {
        const bool isReady = geteuid() != 0 || (chown(folder.c_str(), nobody, nobody) == 0 && setuid(nobody) == 0);
        _exit(isReady && check() ? 0 : 1);
    }
    int status = -1;
    return waitpid(child, &status, 0) == child && status == 0;
}

// The decision alone: a test that hands a root to the function itself would be costly to see fail.
TEST(IsDeletableOnPosix, RefusesEmptyPathsRootsAndDots)
{
    for (const std::string_view path : {""sv, "/"sv, "//"sv, "///"sv, "."sv, ".."sv, "/."sv, "/tmp/.."sv, "/tmp/."sv,
                                        "/tmp/../"sv, "C:"sv, "c:"sv, "/proc/self/root/"sv})
        EXPECT_FALSE(files::IsDeletable(std::string(path))) << path;
    for (const std::string_view path :
         {"/tmp"sv, "tmp"sv, "no such folder"sv, "/tmp/..."sv, "/tmp/.hidden"sv, "/tmp/C:x"sv})
        EXPECT_TRUE(files::IsDeletable(std::string(path))) << path;
}

TEST(UtDeleteDirectoryWithLinksAndPermissionsOfPosix, RefusesPipesAndLinksToWhatIsNoFolder)
{
    const TestFolder folder;
    folder.MakeFile("file");
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    fs::create_symlink("file", folder / "link");
    fs::create_symlink("nowhere", folder / "dangling");
    for (const char* const name : {"pipe", "link", "dangling"}) {
        EXPECT_NE(UtDeleteDirectory(Written(folder / name)), 0) << name;
        EXPECT_TRUE(fs::exists(fs::symlink_status(folder / name))) << name;
    }
}

TEST(UtDeleteDirectoryWithLinksAndPermissionsOfPosix, NeverFollowsALink)
{
    const TestFolder folder;
    folder.MakeFile("outside/a");
    folder.MakeFolder("tree");
    fs::create_symlink(folder / "outside", folder / "tree/folder");
    fs::create_symlink(folder / "outside/a", folder / "tree/file");
    fs::create_symlink("nowhere", folder / "tree/dangling");
    EXPECT_EQ(UtDeleteDirectory(Written(folder / "tree")), 0);
    EXPECT_FALSE(fs::exists(folder / "tree"));
    EXPECT_TRUE(fs::exists(folder / "outside/a"));
}

TEST(UtDeleteDirectoryWithLinksAndPermissionsOfPosix, RemovesALinkAtTheEndOfThePathAndNotItsFolder)
{
    const TestFolder folder;
    folder.MakeFile("outside/a");
    for (const char* const ending : {"", "\\", "\\\\"}) {
        fs::create_symlink("outside", folder / "link");
        EXPECT_EQ(UtDeleteDirectory(Ansi((folder / "link").string() + ending)), 0) << ending;
        EXPECT_FALSE(fs::is_symlink(folder / "link")) << ending;
        EXPECT_TRUE(fs::exists(folder / "outside/a")) << ending;
    }
}

TEST(UtDeleteDirectoryWithLinksAndPermissionsOfPosix, RemovesWriteProtectedFilesAndFolders)
{
    const TestFolder folder;
    EXPECT_TRUE(HoldsWithoutPrivileges(folder.Path(), [&folder] {
        fs::permissions(folder.MakeFile("tree/locked/deep/a"), fs::perms::none);
        fs::create_symlink("..", folder / "tree/locked/link");
        fs::permissions(folder / "tree/locked/deep", fs::perms::none);
        fs::permissions(folder / "tree/locked", fs::perms::owner_read | fs::perms::owner_exec);
        fs::permissions(folder / "tree", fs::perms::none);
        return UtDeleteDirectory(Written(folder / "tree")) == 0 && !fs::exists(folder / "tree");
    }));
}

TEST(UtDeleteDirectoryWithLinksAndPermissionsOfPosix, FailsWhenSomethingIsLeft)
{
    const TestFolder folder;
    EXPECT_TRUE(HoldsWithoutPrivileges(folder.Path(), [&folder] {
        folder.MakeFile("fixed/tree/a");
        fs::permissions(folder / "fixed", fs::perms::owner_read | fs::perms::owner_exec);
        const bool failed = UtDeleteDirectory(Written(folder / "fixed/tree")) != 0;
        const bool isLeft = fs::exists(folder / "fixed/tree");
        fs::permissions(folder / "fixed", fs::perms::owner_all);
        return failed && isLeft;
    }));
}

} // namespace
