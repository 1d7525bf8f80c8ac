#include "files/RemoveFile.h"

#include "harness/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fstream>

namespace fs = std::filesystem;

namespace {

class RemoveFile : public testing::Test
{
protected:
    static UtCString Name(const fs::path& path) { return UtCString(path.string(), UT_ENCODING_UTF8); }

    harness::TemporaryFolder m_folder;
    fs::path m_path = m_folder.Path() / "file";
};

TEST_F(RemoveFile, DeletesAFile)
{
    std::ofstream(m_path) << "x";
    EXPECT_TRUE(files::RemoveFile(Name(m_path)));
    EXPECT_FALSE(fs::exists(m_path));
}

TEST_F(RemoveFile, IsFalseWhenNothingIsThere)
{
    EXPECT_FALSE(files::RemoveFile(Name(m_path)));
    EXPECT_FALSE(files::RemoveFile(""));
    EXPECT_FALSE(files::RemoveFile(UtCString(std::string_view("a\0b", 3), UT_ENCODING_UTF8)));
}

TEST_F(RemoveFile, LeavesAFolderAlone)
{
    fs::create_directory(m_path);
    EXPECT_FALSE(files::RemoveFile(Name(m_path)));
    EXPECT_TRUE(fs::exists(m_path));
}

TEST_F(RemoveFile, RemovesALinkAndNotWhatItNames)
{
    const fs::path target = m_folder.Path() / "target";
    fs::create_directory(target);
    fs::create_symlink(target, m_path);
    EXPECT_TRUE(files::RemoveFile(Name(m_path)));
    EXPECT_TRUE(fs::exists(target));
}

} // namespace
