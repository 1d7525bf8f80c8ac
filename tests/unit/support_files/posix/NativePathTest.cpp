#include "files/NativePath.h"

#include "unit/support_files/TestFolder.h"

#include <gtest/gtest.h>

namespace {

using namespace std::string_view_literals;

// Letter case matters to the file system, so the library looks names up.
UtCString Below(const TestFolder& folder, std::string_view rest)
{
    return UtCString(std::string_view(Utf8(folder.Path()) + std::string(rest)), UT_ENCODING_UTF8);
}

TEST(NativePathWhereLetterCaseMatters, FindsComponentsInAnotherCase)
{
    const TestFolder folder;
    folder.MakeFile("Data/DBS/Server.ini");
    const std::string root = Utf8(folder.Path());
    EXPECT_EQ(files::NativePath(Below(folder, "\\data\\dbs\\SERVER.INI")), root + "/Data/DBS/Server.ini");
    EXPECT_EQ(files::NativePath(Below(folder, "\\Data\\DBS\\Server.ini")), root + "/Data/DBS/Server.ini");
    EXPECT_EQ(files::NativePath(Below(folder, "\\DATA\\dbs\\")), root + "/Data/DBS/");
    EXPECT_EQ(files::NativePath(Below(folder, "\\DATA\\\\dbs")), root + "/Data//DBS");
    EXPECT_EQ(files::NativePath(Below(folder, "\\DATA\\..\\DATA\\dbs")), root + "/Data/../Data/DBS");
}

TEST(NativePathWhereLetterCaseMatters, KeepsTheSpellingFromWhereNothingIsFound)
{
    const TestFolder folder;
    folder.MakeFile("Data/here.txt");
    const std::string root = Utf8(folder.Path());
    EXPECT_EQ(files::NativePath(Below(folder, "\\data\\New\\File.txt")), root + "/Data/New/File.txt");
    EXPECT_EQ(files::NativePath(Below(folder, "\\data\\HERE.TXT\\x")), root + "/Data/here.txt/x");
}

TEST(NativePathWhereLetterCaseMatters, PrefersTheExactSpelling)
{
    const TestFolder folder;
    for (const char* const name : {"file", "File", "FILE"})
        folder.MakeFile(name);
    const std::string root = Utf8(folder.Path());
    for (const char* const name : {"file", "File", "FILE"})
        EXPECT_EQ(files::NativePath(Below(folder, std::string("\\") + name)), root + "/" + name);
}

TEST(NativePathWhereLetterCaseMatters, TakesTheFirstInByteOrderOfSeveralSpellings)
{
    const TestFolder folder;
    for (const char* const name : {"fIle", "fiLe", "File"})
        folder.MakeFile(name);
    EXPECT_EQ(files::NativePath(Below(folder, "\\FILE")), Utf8(folder.Path()) + "/File");
}

TEST(NativePathWhereLetterCaseMatters, IgnoresTheCaseOfUmlautsInEveryEncoding)
{
    const TestFolder folder;
    folder.MakeFile("M\xC3\xBCller.txt");
    const std::string expected = Utf8(folder.Path()) + "/M\xC3\xBCller.txt";
    EXPECT_EQ(files::NativePath(Below(folder, "\\M\xC3\xBCller.txt")), expected);
    EXPECT_EQ(files::NativePath(Below(folder, "\\m\xC3\x9CLLER.TXT")), expected);
    const std::string ansi = Utf8(folder.Path()) + "\\M\xDCLLER.txt";
    EXPECT_EQ(files::NativePath(Ansi(ansi)), expected);
    EXPECT_EQ(files::NativePath(UtCString(Below(folder, "\\M\xC3\xBCller.txt"), UT_ENCODING_UTF16_LE)), expected);
}

TEST(NativePathWhereLetterCaseMatters, FindsARelativePath)
{
    const TestFolder folder;
    folder.MakeFile("Data/File.txt");
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.Path());
    EXPECT_EQ(files::NativePath(Ansi("data\\FILE.TXT"sv)), "Data/File.txt");
    std::filesystem::current_path(before);
}

TEST(NativePathWhereLetterCaseMatters, FindsALinkThatLeadsNowhere)
{
    const TestFolder folder;
    std::filesystem::create_symlink("nowhere", folder / "Link");
    EXPECT_EQ(files::NativePath(Below(folder, "\\LINK")), Utf8(folder.Path()) + "/Link");
}

TEST(NativePathWhereLetterCaseMatters, TakesAPathOfAnyLength)
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
