#include "unit/support_platform/FolderFixture.h"

namespace {

using FolderWithSymbolicLinks = FolderTest;

TEST_F(FolderWithSymbolicLinks, ListsLinksThatLeadNowhere)
{
    fs::create_symlink("nowhere", Path("link"));
    std::vector<std::string> names;
    EXPECT_TRUE(platform::ListFolder(Native(""), names));
    EXPECT_EQ(names, std::vector<std::string>{"link"});
}

TEST_F(FolderWithSymbolicLinks, RemovesLinksAndNotWhatTheyName)
{
    MakeFile("outside/file");
    fs::create_directory(Path("tree"));
    fs::create_symlink("../outside", Path("tree/link"));
    EXPECT_TRUE(platform::RemoveFolderTree(Native("tree")));
    EXPECT_TRUE(fs::exists(Path("outside/file")));
    fs::create_symlink("outside", Path("link"));
    EXPECT_TRUE(platform::RemoveFolderTree(Native("link")));
    EXPECT_FALSE(fs::is_symlink(Path("link")));
    EXPECT_TRUE(fs::exists(Path("outside/file")));
}

} // namespace
