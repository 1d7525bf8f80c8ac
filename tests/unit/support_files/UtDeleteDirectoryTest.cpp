#include "files/UtFile.h"

#include "files/DeletablePath.h"
#include "unit/support_files/TestFolder.h"

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;
using namespace std::string_view_literals;

TEST(UtDeleteDirectory, DeletesATree)
{
    const TestFolder folder;
    folder.MakeFile("tree/a");
    folder.MakeFile("tree/deep/er/b");
    folder.MakeFolder("tree/empty");
    EXPECT_EQ(UtDeleteDirectory(Written(folder / "tree")), 0);
    EXPECT_FALSE(fs::exists(folder / "tree"));
    EXPECT_TRUE(fs::exists(folder.Path()));
}

TEST(UtDeleteDirectory, ResolvesPathsAsTheFileServicesDo)
{
    const TestFolder folder;
    folder.MakeFile("DBS/Tree/a");
    EXPECT_EQ(UtDeleteDirectory(UtCString(Utf8(folder / "dbs/tree") + "\\", UT_ENCODING_UTF8)), 0);
    EXPECT_FALSE(fs::exists(folder / "DBS/Tree"));
    EXPECT_TRUE(fs::exists(folder / "DBS"));
}

TEST(UtDeleteDirectory, SucceedsWhenNothingIsThere)
{
    const TestFolder folder;
    EXPECT_EQ(UtDeleteDirectory(Written(folder / "nothing")), 0);
    EXPECT_EQ(UtDeleteDirectory(Written(folder / "nothing/at/all/")), 0);
}

TEST(WithoutTrailingSeparators, LeavesNothingOfARoot)
{
    EXPECT_EQ(files::WithoutTrailingSeparators("/"), "");
    EXPECT_EQ(files::WithoutTrailingSeparators("\\\\"), "");
    EXPECT_EQ(files::WithoutTrailingSeparators("C:\\"), "C:");
    EXPECT_EQ(files::WithoutTrailingSeparators("/tmp/x//"), "/tmp/x");
    EXPECT_EQ(files::WithoutTrailingSeparators("/tmp/x"), "/tmp/x");
    EXPECT_EQ(files::WithoutTrailingSeparators(""), "");
}

TEST(UtDeleteDirectory, RefusesAPathThatNamesNothing)
{
    EXPECT_NE(UtDeleteDirectory(UtCString()), 0);
    EXPECT_NE(UtDeleteDirectory(Ansi("nosuch\0folder"sv)), 0);
}

TEST(UtDeleteDirectory, RefusesDotsBehindAFolder)
{
    const TestFolder folder;
    folder.MakeFile("tree/inner/a");
    EXPECT_NE(UtDeleteDirectory(Written(folder / "tree/.")), 0);
    EXPECT_NE(UtDeleteDirectory(Written(folder / "tree/inner/..")), 0);
    EXPECT_NE(UtDeleteDirectory(Written(folder / "tree/inner/../")), 0);
    EXPECT_TRUE(fs::exists(folder / "tree/inner/a"));
}

TEST(IsDotName, IsTwoNamesOnPosixAndAllOfDotsAndBlanksOnWindows)
{
    const platform::PathRules windows{'\\', true, true};
    const platform::PathRules posix{'/', false, false};
    for (const char* const name : {".", ".."}) {
        EXPECT_TRUE(files::IsDotName(name, windows)) << name;
        EXPECT_TRUE(files::IsDotName(name, posix)) << name;
    }
    for (const char* const name : {"...", ". ", ".. ", " ", " .", "  "}) {
        EXPECT_TRUE(files::IsDotName(name, windows)) << name;
        EXPECT_FALSE(files::IsDotName(name, posix)) << name;
    }
    for (const char* const name : {"", "a", ".a", "a.", ". a"})
        EXPECT_FALSE(files::IsDotName(name, windows)) << name;
}

TEST(UtDeleteDirectory, RefusesWhatIsNoFolder)
{
    const TestFolder folder;
    EXPECT_NE(UtDeleteDirectory(Written(folder.MakeFile("file"))), 0);
    EXPECT_TRUE(fs::exists(folder / "file"));
}

} // namespace
