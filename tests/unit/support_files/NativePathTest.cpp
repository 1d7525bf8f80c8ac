#include "files/NativePath.h"

#include "unit/support_files/TestFolder.h"

#include <gtest/gtest.h>

namespace {

using namespace std::string_view_literals;

UtCString Below(const TestFolder& folder, std::string_view rest)
{
    return UtCString(std::string_view(folder.Path().string() + std::string(rest)), UT_ENCODING_UTF8);
}

TEST(NativePath, TranslatesSeparators)
{
    const struct
    {
        std::string_view written;
        const char* native;
    } rows[] = {
        {"no\\such\\file.ini"sv, "no/such/file.ini"},
        {"no/such\\file.ini"sv, "no/such/file.ini"},
        {"no\\such\\"sv, "no/such/"},
        {"\\no\\such"sv, "/no/such"},
        {"C:\\no\\such"sv, "C:/no/such"},
        {"\\\\server\\share"sv, "//server/share"},
        {"nosuchfile"sv, "nosuchfile"},
        {"\\"sv, "/"},
        {"/"sv, "/"},
        {".\\nosuchfile"sv, "./nosuchfile"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(files::NativePath(Ansi(row.written)), row.native) << row.written;
}

TEST(NativePath, IsEmptyForAnEmptyPathAndAZeroByte)
{
    EXPECT_EQ(files::NativePath(UtCString()), "");
    EXPECT_EQ(files::NativePath(Ansi("tmp\0x"sv)), "");
    EXPECT_EQ(files::NativePath(Ansi("\0"sv)), "");
    EXPECT_EQ(files::NativePath(Ansi("\\tmp\0"sv)), "");
}

TEST(NativePath, FindsComponentsInAnotherCase)
{
    const TestFolder folder;
    folder.MakeFile("Data/DBS/Server.ini");
    const std::string root = folder.Path().string();
    EXPECT_EQ(files::NativePath(Below(folder, "\\data\\dbs\\SERVER.INI")), root + "/Data/DBS/Server.ini");
    EXPECT_EQ(files::NativePath(Below(folder, "\\Data\\DBS\\Server.ini")), root + "/Data/DBS/Server.ini");
    EXPECT_EQ(files::NativePath(Below(folder, "\\DATA\\dbs\\")), root + "/Data/DBS/");
    EXPECT_EQ(files::NativePath(Below(folder, "\\DATA\\\\dbs")), root + "/Data//DBS");
    EXPECT_EQ(files::NativePath(Below(folder, "\\DATA\\..\\DATA\\dbs")), root + "/Data/../Data/DBS");
}

TEST(NativePath, KeepsTheSpellingFromWhereNothingIsFound)
{
    const TestFolder folder;
    folder.MakeFile("Data/here.txt");
    const std::string root = folder.Path().string();
    EXPECT_EQ(files::NativePath(Below(folder, "\\data\\New\\File.txt")), root + "/Data/New/File.txt");
    EXPECT_EQ(files::NativePath(Below(folder, "\\data\\HERE.TXT\\x")), root + "/Data/here.txt/x");
}

TEST(NativePath, PrefersTheExactSpelling)
{
    const TestFolder folder;
    for (const char* const name : {"file", "File", "FILE"})
        folder.MakeFile(name);
    const std::string root = folder.Path().string();
    for (const char* const name : {"file", "File", "FILE"})
        EXPECT_EQ(files::NativePath(Below(folder, std::string("\\") + name)), root + "/" + name);
}

TEST(NativePath, TakesTheFirstInByteOrderOfSeveralSpellings)
{
    const TestFolder folder;
    for (const char* const name : {"fIle", "fiLe", "File"})
        folder.MakeFile(name);
    EXPECT_EQ(files::NativePath(Below(folder, "\\FILE")), folder.Path().string() + "/File");
}

TEST(NativePath, IgnoresTheCaseOfUmlautsInEveryEncoding)
{
    const TestFolder folder;
    folder.MakeFile("M\xC3\xBCller.txt");
    const std::string expected = folder.Path().string() + "/M\xC3\xBCller.txt";
    EXPECT_EQ(files::NativePath(Below(folder, "\\M\xC3\xBCller.txt")), expected);
    EXPECT_EQ(files::NativePath(Below(folder, "\\m\xC3\x9CLLER.TXT")), expected);
    const std::string ansi = folder.Path().string() + "\\M\xDCLLER.txt";
    EXPECT_EQ(files::NativePath(Ansi(ansi)), expected);
    EXPECT_EQ(files::NativePath(UtCString(Below(folder, "\\M\xC3\xBCller.txt"), UT_ENCODING_UTF16_LE)), expected);
}

TEST(NativePath, FindsARelativePath)
{
    const TestFolder folder;
    folder.MakeFile("Data/File.txt");
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.Path());
    EXPECT_EQ(files::NativePath(Ansi("data\\FILE.TXT"sv)), "Data/File.txt");
    std::filesystem::current_path(before);
}

TEST(NativePath, FindsALinkThatLeadsNowhere)
{
    const TestFolder folder;
    std::filesystem::create_symlink("nowhere", folder / "Link");
    EXPECT_EQ(files::NativePath(Below(folder, "\\LINK")), folder.Path().string() + "/Link");
}

TEST(NativePath, TakesAPathOfAnyLength)
{
    const std::string name(100'000, 'x');
    EXPECT_EQ(files::NativePath(Ansi("\\tmp\\" + name)), "/tmp/" + name);
    std::string deep;
    std::string expected;
    for (int level = 0; level < 10'000; ++level) {
        deep += "nosuch\\";
        expected += "nosuch/";
    }
    EXPECT_EQ(files::NativePath(Ansi(deep)), expected);
}

} // namespace
