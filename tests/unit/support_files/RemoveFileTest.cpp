#include "files/RemoveFile.h"

#include "unit/support_files/TestFolder.h"

#include <gtest/gtest.h>

namespace fs = std::filesystem;

namespace {

class RemoveFile : public testing::Test
{
protected:
    TestFolder m_folder;
    fs::path m_path = m_folder / "file";
};

TEST_F(RemoveFile, DeletesAFile)
{
    std::ofstream(m_path) << "x";
    EXPECT_TRUE(files::RemoveFile(Written(m_path)));
    EXPECT_FALSE(fs::exists(m_path));
}

TEST_F(RemoveFile, IsFalseWhenNothingIsThere)
{
    EXPECT_FALSE(files::RemoveFile(Written(m_path)));
    EXPECT_FALSE(files::RemoveFile(""));
    EXPECT_FALSE(files::RemoveFile(UtCString(std::string_view("a\0b", 3), UT_ENCODING_UTF8)));
}

TEST_F(RemoveFile, LeavesAFolderAlone)
{
    fs::create_directory(m_path);
    EXPECT_FALSE(files::RemoveFile(Written(m_path)));
    EXPECT_TRUE(fs::exists(m_path));
}

TEST_F(RemoveFile, TakesANameWithEveryCharacter)
{
    const fs::path path = m_folder.MakeFile("M\xC3\xBCller \xCE\xB1\xE6\x97\xA5");
    EXPECT_TRUE(files::RemoveFile(Written(path)));
    EXPECT_FALSE(fs::exists(path));
}

} // namespace
