#include "files/UtFile.h"

#include "harness/System.h"
#include "unit/Environment.h"
#include "unit/support_files/TestFolder.h"

#include <gtest/gtest.h>

namespace {

using namespace std::string_view_literals;

TEST(UtIsFile, TellsFilesFromFolders)
{
    const TestFolder folder;
    folder.MakeFile("file");
    folder.MakeFolder("folder");
    const struct
    {
        const char* name;
        bool isFile, isFolder;
    } rows[] = {{"file", true, false},          {"FILE", true, false},          {"folder", false, true},
                {"Folder", false, true},        {"folder/", false, true},       {"file/", false, false},
                {"nothing", false, false},      {"nothing/file", false, false}, {"file/file", false, false},
                {"folder/../file", true, false}};
    for (const auto& row : rows) {
        EXPECT_EQ(UtIsFile(Written(folder / row.name)) != 0, row.isFile) << row.name;
        EXPECT_EQ(UtIsDir(Written(folder / row.name)) != 0, row.isFolder) << row.name;
    }
}

TEST(UtIsFile, TakesAPathOfEveryEncoding)
{
    const TestFolder folder;
    const UtCString path = Written(folder.MakeFile("M\xC3\xBCller"));
    for (const eUtEncodingType encoding : {UT_ENCODING_DEFAULT, UT_ENCODING_UTF8, UT_ENCODING_UTF16_LE})
        EXPECT_NE(UtIsFile(UtCString(path, encoding)), 0) << encoding;
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

TEST(UtGetTempDir, FollowsTheUsersChoice)
{
    const TestFolder folder;
    const Environment variable(harness::temporaryFolderVariable, Utf8(folder.Path()).c_str());
    EXPECT_EQ(UtGetTempDir(), Written(folder / ""));
}

TEST(UtGetTempDir, WritesOneBackslashWhenTheChoiceEndsWithASlash)
{
    const TestFolder folder;
    const Environment variable(harness::temporaryFolderVariable, Utf8(folder / "").c_str());
    EXPECT_EQ(UtGetTempDir(), Written(folder / ""));
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
        const std::string chosen = Utf8(folder.MakeFolder(row.name));
        const Environment variable(harness::temporaryFolderVariable, chosen.c_str());
        EXPECT_EQ(UtGetTempDir().GetEncodingType(), row.encoding) << row.name;
        EXPECT_EQ(UtGetTempDir(), Written(folder / row.name / "")) << row.name;
    }
}

} // namespace
