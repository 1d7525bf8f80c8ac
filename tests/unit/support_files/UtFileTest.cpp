#include "files/UtFile.h"

#include "files/NativePath.h"
#include "unit/Environment.h"
#include "unit/support_files/TestFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace {

using namespace std::string_view_literals;

TEST(UtIsFile, TellsFilesFromEverythingElse)
{
    const TestFolder folder;
    folder.MakeFile("file");
    folder.MakeFolder("folder");
    std::filesystem::create_symlink("file", folder / "link-to-file");
    std::filesystem::create_symlink("folder", folder / "link-to-folder");
    std::filesystem::create_symlink("nowhere", folder / "link-to-nothing");
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    const struct
    {
        const char* name;
        bool isFile, isFolder;
    } rows[] = {{"file", true, false},         {"FILE", true, false},
                {"folder", false, true},       {"Folder", false, true},
                {"folder/", false, true},      {"file/", false, false},
                {"link-to-file", true, false}, {"link-to-folder", false, true},
                {"pipe", false, false},        {"link-to-nothing", false, false},
                {"nothing", false, false},     {"nothing/file", false, false},
                {"file/file", false, false},   {"folder/../file", true, false}};
    for (const auto& row : rows) {
        EXPECT_EQ(UtIsFile(Written(folder / row.name)) != 0, row.isFile) << row.name;
        EXPECT_EQ(UtIsDir(Written(folder / row.name)) != 0, row.isFolder) << row.name;
    }
}

TEST(UtIsFile, FindsNothingAtAnImpossiblePath)
{
    const std::string tooLong(100'000, 'x');
    for (const std::string_view path : {""sv, "\0"sv, "\\tmp\0"sv, std::string_view(tooLong)}) {
        EXPECT_EQ(UtIsFile(Ansi(path)), 0) << path.substr(0, 10);
        EXPECT_EQ(UtIsDir(Ansi(path)), 0) << path.substr(0, 10);
    }
}

TEST(UtIsDir, KnowsTheRoot)
{
    EXPECT_NE(UtIsDir(Ansi("\\"sv)), 0);
    EXPECT_NE(UtIsDir(Ansi("/"sv)), 0);
}

TEST(UtGetTempDir, EndsWithABackslash)
{
    const Environment variable("TMPDIR", nullptr);
    EXPECT_EQ(UtGetTempDir().View(), "\\tmp\\");
    EXPECT_NE(UtIsDir(UtGetTempDir()), 0);
}

TEST(UtGetTempDir, FollowsTheUsersChoice)
{
    const TestFolder folder;
    const Environment variable("TMPDIR", folder.Path().c_str());
    EXPECT_EQ(files::NativePath(UtGetTempDir()), folder.Path().string() + "/");
}

TEST(UtGetTempDir, WritesOneBackslashWhenTheChoiceEndsWithASlash)
{
    const TestFolder folder;
    const Environment variable("TMPDIR", (folder.Path().string() + "/").c_str());
    EXPECT_EQ(files::NativePath(UtGetTempDir()), folder.Path().string() + "/");
}

TEST(UtGetTempDir, IsInUtf8OnlyWhereTheDefaultEncodingCannotWriteIt)
{
    const TestFolder folder;
    const struct
    {
        const char* name;
        eUtEncodingType encoding;
    } rows[] = {
        {"plain", UT_ENCODING_DEFAULT}, {"M\xC3\xBCller", UT_ENCODING_DEFAULT}, {"\xCE\xB1\xCE\xB2", UT_ENCODING_UTF8}};
    for (const auto& row : rows) {
        const std::string chosen = folder.MakeFolder(row.name).string();
        const Environment variable("TMPDIR", chosen.c_str());
        EXPECT_EQ(UtGetTempDir().GetEncodingType(), row.encoding) << row.name;
        EXPECT_EQ(files::NativePath(UtGetTempDir()), chosen + "/") << row.name;
    }
}

} // namespace
