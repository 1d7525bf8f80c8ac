#include "unit/support_files/TreeCopy.h"

namespace {

namespace fs = std::filesystem;

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
    for (const char* const to : {"from", "FROM", "from/", "from/new", "FROM/new", "from/new/er", "from/../from"}) {
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

} // namespace
