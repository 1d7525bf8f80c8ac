#include "unit/support_files/TreeCopy.h"

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

// Links, pipes, permissions and limits of file sizes are POSIX's.

namespace {

namespace fs = std::filesystem;

TEST(UtCopyDirectoryWithLinksAndPermissionsOfPosix, LeavesALinkThatTheTargetHas)
{
    const TestFolder folder;
    folder.MakeFile("from/file", "new content");
    folder.MakeFolder("to");
    fs::create_symlink(folder / "outside", folder / "to/file");
    EXPECT_EQ(Copy(folder), 0);
    EXPECT_FALSE(fs::exists(folder / "outside")) << "nothing is written through the link";
}

TEST(UtCopyDirectoryWithLinksAndPermissionsOfPosix, CarriesPermissions)
{
    const TestFolder folder;
    fs::permissions(folder.MakeFile("from/a"), fs::perms::owner_read);
    EXPECT_EQ(Copy(folder), 0);
    EXPECT_EQ(fs::status(folder / "to/a").permissions(), fs::perms::owner_read);
}

TEST(UtCopyDirectoryWithLinksAndPermissionsOfPosix, CopiesWhatLinksName)
{
    const TestFolder folder;
    folder.MakeFile("outside/file", "linked");
    folder.MakeFolder("from");
    fs::create_symlink(folder / "outside/file", folder / "from/link");
    fs::create_symlink(folder / "outside", folder / "from/folder");
    EXPECT_EQ(Copy(folder), 0);
    EXPECT_EQ(folder.Read("to/link"), "linked");
    EXPECT_FALSE(fs::is_symlink(folder / "to/link"));
    EXPECT_EQ(folder.Read("to/folder/file"), "linked");
    EXPECT_FALSE(fs::is_symlink(folder / "to/folder"));
}

TEST(UtCopyDirectoryWithLinksAndPermissionsOfPosix, LeavesOutWhatIsNoFile)
{
    const TestFolder folder;
    folder.MakeFile("from/a");
    ASSERT_EQ(mkfifo((folder / "from/pipe").c_str(), 0600), 0);
    EXPECT_EQ(Copy(folder), 0);
    EXPECT_EQ(Names(folder / "to"), std::set<std::string>{"a"});
}

TEST(UtCopyDirectoryWithLinksAndPermissionsOfPosix, FailsForALinkToNothing)
{
    const TestFolder folder;
    folder.MakeFolder("from");
    fs::create_symlink("nowhere", folder / "from/link");
    EXPECT_NE(Copy(folder), 0);
}

TEST(UtCopyDirectoryWithLinksAndPermissionsOfPosix, FailsForLinksThatLeadInACircle)
{
    const TestFolder folder;
    folder.MakeFolder("from/deep");
    fs::create_symlink("..", folder / "from/deep/up");
    EXPECT_NE(Copy(folder), 0);
}

TEST(UtCopyDirectoryWithLinksAndPermissionsOfPosix, FailsForALinkToTheTarget)
{
    const TestFolder folder;
    folder.MakeFolder("from");
    folder.MakeFolder("to");
    fs::create_symlink("../to", folder / "from/target");
    EXPECT_NE(Copy(folder), 0);
    EXPECT_EQ(Names(folder / "to"), std::set<std::string>{"target"}) << "it does not copy into itself";
}

TEST(UtCopyDirectoryWithLinksAndPermissionsOfPosix, LeavesNoFileHalfWritten)
{
    const TestFolder folder;
    folder.MakeFile("from/large", std::string(1'000'000, 'x'));
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    const auto oldHandler = signal(SIGXFSZ, SIG_IGN);
    const rlimit small = {100'000, before.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    EXPECT_NE(Copy(folder), 0);
    setrlimit(RLIMIT_FSIZE, &before);
    signal(SIGXFSZ, oldHandler);
    EXPECT_EQ(Names(folder / "to"), std::set<std::string>());
}

TEST(UtCopyDirectoryWithLinksAndPermissionsOfPosix, CreatesNothingWhenALinkLeadsIntoTheSource)
{
    const TestFolder folder;
    folder.MakeFile("from/a");
    fs::create_symlink("from", folder / "link");
    EXPECT_NE(Copy(folder, "from", "link/new"), 0);
    EXPECT_EQ(Names(folder / "from"), std::set<std::string>{"a"});
}

} // namespace
