#include "files/UtFile.h"

#include "unit/support_files/TestFolder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <set>
#include <sys/resource.h>
#include <sys/stat.h>

namespace {

namespace fs = std::filesystem;

int Copy(const TestFolder& folder, const char* from = "from", const char* to = "to")
{
    return UtCopyDirectory(Written(folder / from), Written(folder / to));
}

std::set<std::string> Names(const fs::path& folder)
{
    std::set<std::string> names;
    for (const auto& entry : fs::recursive_directory_iterator(folder))
        names.insert(fs::relative(entry.path(), folder).string());
    return names;
}

TEST(UtCopyDirectory, CopiesATree)
{
    const TestFolder folder;
    folder.MakeFile("from/a.txt", "alpha");
    folder.MakeFile("from/deep/er/b.bin", std::string("\0\r\n\xFF", 4));
    folder.MakeFile("from/empty", "");
    folder.MakeFolder("from/no files");
    EXPECT_EQ(Copy(folder), 0);
    EXPECT_EQ(Names(folder / "to"),
              (std::set<std::string>{"a.txt", "deep", "deep/er", "deep/er/b.bin", "empty", "no files"}));
    EXPECT_EQ(folder.Read("to/a.txt"), "alpha");
    EXPECT_EQ(folder.Read("to/deep/er/b.bin"), std::string("\0\r\n\xFF", 4));
    EXPECT_EQ(folder.Read("from/a.txt"), "alpha");
}

TEST(UtCopyDirectory, LeavesAFileThatTheTargetHas)
{
    const TestFolder folder;
    folder.MakeFile("from/old.txt", "new content");
    folder.MakeFile("from/deep/old.txt", "new content");
    folder.MakeFile("from/new.txt", "new content");
    folder.MakeFile("to/old.txt", "old");
    folder.MakeFile("to/deep/old.txt", "");
    folder.MakeFile("to/mine.txt", "mine");
    EXPECT_EQ(Copy(folder), 0);
    EXPECT_EQ(folder.Read("to/old.txt"), "old");
    EXPECT_EQ(folder.Read("to/deep/old.txt"), "");
    EXPECT_EQ(folder.Read("to/new.txt"), "new content");
    EXPECT_EQ(folder.Read("to/mine.txt"), "mine");
}

TEST(UtCopyDirectory, LeavesALinkThatTheTargetHas)
{
    const TestFolder folder;
    folder.MakeFile("from/file", "new content");
    folder.MakeFolder("to");
    fs::create_symlink(folder / "outside", folder / "to/file");
    EXPECT_EQ(Copy(folder), 0);
    EXPECT_FALSE(fs::exists(folder / "outside")) << "nothing is written through the link";
}

TEST(UtCopyDirectory, CreatesTheTargetWithItsParents)
{
    const TestFolder folder;
    folder.MakeFile("from/a", "alpha");
    EXPECT_EQ(Copy(folder, "from", "new/er/to"), 0);
    EXPECT_EQ(folder.Read("new/er/to/a"), "alpha");
}

TEST(UtCopyDirectory, ResolvesPathsAsTheFileServicesDo)
{
    const TestFolder folder;
    folder.MakeFile("From/a", "alpha");
    folder.MakeFolder("To");
    EXPECT_EQ(Copy(folder, "FROM/", "to/"), 0);
    EXPECT_EQ(folder.Read("To/a"), "alpha");
}

TEST(UtCopyDirectory, CarriesPermissions)
{
    const TestFolder folder;
    fs::permissions(folder.MakeFile("from/a"), fs::perms::owner_read);
    EXPECT_EQ(Copy(folder), 0);
    EXPECT_EQ(fs::status(folder / "to/a").permissions(), fs::perms::owner_read);
}

TEST(UtCopyDirectory, CopiesWhatLinksName)
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

TEST(UtCopyDirectory, LeavesOutWhatIsNoFile)
{
    const TestFolder folder;
    folder.MakeFile("from/a");
    ASSERT_EQ(mkfifo((folder / "from/pipe").c_str(), 0600), 0);
    EXPECT_EQ(Copy(folder), 0);
    EXPECT_EQ(Names(folder / "to"), std::set<std::string>{"a"});
}

TEST(UtCopyDirectory, FailsForALinkToNothing)
{
    const TestFolder folder;
    folder.MakeFolder("from");
    fs::create_symlink("nowhere", folder / "from/link");
    EXPECT_NE(Copy(folder), 0);
}

TEST(UtCopyDirectory, FailsForLinksThatLeadInACircle)
{
    const TestFolder folder;
    folder.MakeFolder("from/deep");
    fs::create_symlink("..", folder / "from/deep/up");
    EXPECT_NE(Copy(folder), 0);
}

TEST(UtCopyDirectory, FailsForALinkToTheTarget)
{
    const TestFolder folder;
    folder.MakeFolder("from");
    folder.MakeFolder("to");
    fs::create_symlink("../to", folder / "from/target");
    EXPECT_NE(Copy(folder), 0);
    EXPECT_EQ(Names(folder / "to"), std::set<std::string>{"target"}) << "it does not copy into itself";
}

TEST(UtCopyDirectory, FailsWithoutASourceFolder)
{
    const TestFolder folder;
    folder.MakeFile("file");
    EXPECT_NE(Copy(folder, "nothing", "to"), 0);
    EXPECT_NE(Copy(folder, "file", "to"), 0);
    EXPECT_FALSE(fs::exists(folder / "to"));
    EXPECT_NE(UtCopyDirectory(UtCString(), Written(folder / "to")), 0);
    EXPECT_NE(UtCopyDirectory(Written(folder.Path()), UtCString()), 0);
}

TEST(UtCopyDirectory, CreatesNothingWhenTheTargetIsTheSourceOrInsideIt)
{
    const TestFolder folder;
    folder.MakeFile("from/a");
    fs::create_symlink("from", folder / "link");
    for (const char* const to : {"from", "FROM", "from/", "from/new", "from/new/er", "from/../from", "link/new"}) {
        EXPECT_NE(Copy(folder, "from", to), 0) << to;
        EXPECT_EQ(Names(folder / "from"), std::set<std::string>{"a"}) << to;
    }
}

TEST(UtCopyDirectory, CreatesNothingInTheWorkingFolderWhenThatIsTheSource)
{
    const TestFolder folder;
    folder.MakeFile("a");
    const fs::path before = fs::current_path();
    fs::current_path(folder.Path());
    EXPECT_NE(UtCopyDirectory(Ansi("."), Ansi("new")), 0);
    EXPECT_NE(UtCopyDirectory(Ansi("."), Ansi("new\\er")), 0);
    EXPECT_NE(UtCopyDirectory(Written(folder.Path()), Ansi("new")), 0);
    fs::current_path(before);
    EXPECT_EQ(Names(folder.Path()), std::set<std::string>{"a"});
}

TEST(UtCopyDirectory, CopiesToANeighbourWithALongerName)
{
    const TestFolder folder;
    folder.MakeFile("from/a", "alpha");
    EXPECT_EQ(Copy(folder, "from", "from2"), 0);
    EXPECT_EQ(folder.Read("from2/a"), "alpha");
}

TEST(UtCopyDirectory, CopiesIntoItsOwnParent)
{
    const TestFolder folder;
    folder.MakeFile("to/from/a", "alpha");
    EXPECT_EQ(Copy(folder, "to/from", "to"), 0);
    EXPECT_EQ(folder.Read("to/a"), "alpha");
}

TEST(UtCopyDirectory, FailsWhereAFileAndAFolderMeet)
{
    const TestFolder folder;
    folder.MakeFile("from/name/a");
    folder.MakeFile("to/name", "mine");
    EXPECT_NE(Copy(folder), 0);
    EXPECT_EQ(folder.Read("to/name"), "mine");
    folder.MakeFile("from2/name");
    folder.MakeFolder("to2/name");
    EXPECT_NE(Copy(folder, "from2", "to2"), 0);
    folder.MakeFile("to3");
    EXPECT_NE(Copy(folder, "from", "to3"), 0);
}

TEST(UtCopyDirectory, LeavesNoFileHalfWritten)
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

} // namespace
