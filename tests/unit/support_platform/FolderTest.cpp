#include "platform/Folder.h"

#include "harness/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace {

namespace fs = std::filesystem;

class FolderTest : public testing::Test
{
protected:
    fs::path MakeFile(const std::string& name) const
    {
        fs::create_directories((Path() / name).parent_path());
        std::ofstream(Path() / name) << "content";
        return Path() / name;
    }

    const fs::path& Path() const { return m_temporary.Path(); }

private:
    harness::TemporaryFolder m_temporary;
};

TEST_F(FolderTest, ListsEveryNameAndNoDots)
{
    MakeFile("file");
    MakeFile(".hidden");
    MakeFile("folder/inner");
    fs::create_symlink("nowhere", Path() / "link");
    std::vector<std::string> names = {"kept"};
    EXPECT_TRUE(platform::ListFolder(Path(), names));
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, (std::vector<std::string>{".hidden", "file", "folder", "kept", "link"}));
}

TEST_F(FolderTest, ListsTheWorkingFolderForAnEmptyPath)
{
    MakeFile("file");
    const fs::path before = fs::current_path();
    fs::current_path(Path());
    std::vector<std::string> names;
    EXPECT_TRUE(platform::ListFolder("", names));
    fs::current_path(before);
    EXPECT_EQ(names, std::vector<std::string>{"file"});
}

TEST_F(FolderTest, ListsNothingThatIsNoFolder)
{
    std::vector<std::string> names;
    EXPECT_FALSE(platform::ListFolder(MakeFile("file"), names));
    EXPECT_FALSE(platform::ListFolder(Path() / "nothing", names));
    EXPECT_TRUE(names.empty());
}

TEST_F(FolderTest, RemovesATreeWithManyEntries)
{
    for (int number = 0; number < 1000; ++number)
        MakeFile("tree/deep/" + std::to_string(number));
    EXPECT_TRUE(platform::RemoveFolderTree(Path() / "tree"));
    EXPECT_FALSE(fs::exists(Path() / "tree"));
}

TEST_F(FolderTest, RemovesLinksAndNotWhatTheyName)
{
    MakeFile("outside/file");
    fs::create_directory(Path() / "tree");
    fs::create_symlink("../outside", Path() / "tree/link");
    EXPECT_TRUE(platform::RemoveFolderTree(Path() / "tree"));
    EXPECT_TRUE(fs::exists(Path() / "outside/file"));
    fs::create_symlink("outside", Path() / "link");
    EXPECT_TRUE(platform::RemoveFolderTree(Path() / "link"));
    EXPECT_FALSE(fs::is_symlink(Path() / "link"));
    EXPECT_TRUE(fs::exists(Path() / "outside/file"));
}

TEST_F(FolderTest, FailsWhenNothingIsThere)
{
    EXPECT_FALSE(platform::RemoveFolderTree(Path() / "nothing"));
    EXPECT_FALSE(platform::RemoveFolderTree(""));
}

} // namespace
