#include "unit/support_platform/FolderFixture.h"

#include <algorithm>

namespace {

TEST_F(FolderTest, ListsEveryNameAndNoDots)
{
    MakeFile("file");
    MakeFile(".hidden");
    MakeFile("folder/inner");
    std::vector<std::string> names = {"kept"};
    EXPECT_TRUE(platform::ListFolder(Native(""), names));
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, (std::vector<std::string>{".hidden", "file", "folder", "kept"}));
}

TEST_F(FolderTest, ListsTheWorkingFolderForAnEmptyPath)
{
    MakeFile("file");
    const fs::path before = fs::current_path();
    fs::current_path(Path(""));
    std::vector<std::string> names;
    EXPECT_TRUE(platform::ListFolder("", names));
    fs::current_path(before);
    EXPECT_EQ(names, std::vector<std::string>{"file"});
}

TEST_F(FolderTest, ListsNothingThatIsNoFolder)
{
    MakeFile("file");
    std::vector<std::string> names;
    EXPECT_FALSE(platform::ListFolder(Native("file"), names));
    EXPECT_FALSE(platform::ListFolder(Native("nothing"), names));
    EXPECT_TRUE(names.empty());
}

TEST_F(FolderTest, RemovesATreeWithManyEntries)
{
    for (int number = 0; number < 1000; ++number)
        MakeFile("tree/deep/" + std::to_string(number));
    EXPECT_TRUE(platform::RemoveFolderTree(Native("tree")));
    EXPECT_FALSE(fs::exists(Path("tree")));
}

TEST_F(FolderTest, FailsWhenNothingIsThere)
{
    EXPECT_FALSE(platform::RemoveFolderTree(Native("nothing")));
    EXPECT_FALSE(platform::RemoveFolderTree(""));
}

TEST_F(FolderTest, TakesNamesWithEveryCharacter)
{
    const std::string name = "M\xC3\xBCller \xCE\xB1\xE6\x97\xA5\xF0\x9F\x98\x80";
    MakeFile("tree/" + name + "/" + name);
    std::vector<std::string> names;
    EXPECT_TRUE(platform::ListFolder(Native("tree"), names));
    EXPECT_EQ(names, std::vector<std::string>{name});
    EXPECT_TRUE(platform::RemoveFolderTree(Native("tree/" + name)));
    EXPECT_TRUE(fs::is_empty(Path("tree")));
}

TEST_F(FolderTest, ListsAnEmptyFolder)
{
    std::vector<std::string> names;
    EXPECT_TRUE(platform::ListFolder(Native(""), names));
    EXPECT_TRUE(names.empty());
}

} // namespace
