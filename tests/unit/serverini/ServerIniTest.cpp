#include "connection/ServerIni.h"

#include "unit/serverini/IniFolder.h"

#include <gtest/gtest.h>

namespace {

std::string Bytes(const UtCString& text)
{
    return std::string(text.View());
}

struct PathCase
{
    const char* name;
    const char* given;
    const char* path;
};

const PathCase pathCases[] = {
    {"AFolder", "C:\\cfg", "C:\\cfg\\Server.ini"},
    {"AFolderWithABackslash", "C:\\cfg\\", "C:\\cfg\\Server.ini"},
    {"AFolderWithTwoBackslashes", "C:\\cfg\\\\", "C:\\cfg\\Server.ini"},
    {"AFolderWithBackslashesAndBlanks", "C:\\cfg\\ \\ ", "C:\\cfg\\Server.ini"},
    {"AFile", "C:\\cfg\\my.ini", "C:\\cfg\\my.ini"},
    {"AFileWithBackslashesAndBlanks", "C:\\cfg\\my.ini \\ \\", "C:\\cfg\\my.ini"},
    {"TheEndingIgnoresLetterCase", "C:\\cfg\\MY.INI", "C:\\cfg\\MY.INI"},
    {"TheEndingAlone", ".ini", ".ini"},
    {"TheEndingWithoutItsPoint", "C:\\cfg\\ini", "C:\\cfg\\ini\\Server.ini"},
    {"AnotherEnding", "C:\\cfg\\my.inf", "C:\\cfg\\my.inf\\Server.ini"},
    {"AnEndingBehindTheEnding", "C:\\cfg\\my.ini.bak", "C:\\cfg\\my.ini.bak\\Server.ini"},
    {"ARelativeFolder", "cfg", "cfg\\Server.ini"},
    {"BlanksInFrontStay", " cfg", " cfg\\Server.ini"},
    {"ATabStays", "cfg\t", "cfg\t\\Server.ini"},
    {"AFolderWithASlash", "/etc/cfg/", "/etc/cfg\\Server.ini"},
    {"TheRootWithASlash", "/", "\\Server.ini"},
    {"OnlyBackslashes", "\\\\", ""},
    {"OnlyBlanks", "  ", ""},
    {"BackslashesAndBlanks", "\\ \\ ", ""},
    {"Nothing", "", ""},
};

class ServerIniPathCase : public testing::TestWithParam<PathCase>
{
};

TEST_P(ServerIniPathCase, NamesItsFile)
{
    EXPECT_EQ(Bytes(connection::ServerIniPath(GetParam().given)), GetParam().path);
}

INSTANTIATE_TEST_SUITE_P(Paths, ServerIniPathCase, testing::ValuesIn(pathCases),
                         [](const auto& row) { return row.param.name; });

const PathCase directoryCases[] = {
    {"AFile", "C:\\cfg\\Server.ini", "C:\\cfg\\"},
    {"AFileInTheRoot", "\\Server.ini", "\\"},
    {"ARelativeFile", "cfg\\Server.ini", "cfg\\"},
    {"MixedSeparators", "/etc/cfg\\Server.ini", "/etc/cfg\\"},
    {"TheLastBackslashCounts", "a\\b\\c\\d.ini", "a\\b\\c\\"},
    {"NeighbouringBackslashes", "a\\\\d.ini", "a\\\\"},
    {"Nothing", "", ""},
};

class ServerIniDirectoryCase : public testing::TestWithParam<PathCase>
{
};

TEST_P(ServerIniDirectoryCase, EndsWithTheLastBackslash)
{
    EXPECT_EQ(Bytes(connection::DirectoryOfServerIni(GetParam().given)), GetParam().path);
}

INSTANTIATE_TEST_SUITE_P(Paths, ServerIniDirectoryCase, testing::ValuesIn(directoryCases),
                         [](const auto& row) { return row.param.name; });

TEST(DirectoryOfServerIni, Kept_K70_IsTheFileNameItselfWithoutABackslash)
{
    EXPECT_EQ(Bytes(connection::DirectoryOfServerIni("Server.ini")), "Server.ini");
    EXPECT_EQ(Bytes(connection::DirectoryOfServerIni("/etc/mydb/Server.ini")), "/etc/mydb/Server.ini");
}

TEST(DirectoryOfServerIni, CountsCharactersOfEveryEncoding)
{
    const UtCString utf8("C:\\\xC3\xA4\\Server.ini", UT_ENCODING_UTF8);
    EXPECT_EQ(Bytes(connection::DirectoryOfServerIni(utf8)), "C:\\\xC3\xA4\\");
    const UtCString utf16("C:\\cfg\\Server.ini", UT_ENCODING_UTF16_LE);
    EXPECT_EQ(connection::DirectoryOfServerIni(utf16), UtCString("C:\\cfg\\"));
}

TEST(AllowsConnecting, TakesTrueInAnyLetterCaseAndOne)
{
    for (const char* yes : {"True", "true", "TRUE", "tRuE", "1"})
        EXPECT_TRUE(connection::AllowsConnecting(yes)) << yes;
    for (const char* no : {"", "FALSE", "False", "0", "2", "01", "1 ", "-1", "yes", "on", "true ", "truer", "tru"})
        EXPECT_FALSE(connection::AllowsConnecting(no)) << no;
}

struct AliasCase
{
    const char* name;
    const char* alias;
    const char* host;
    unsigned long port;
    const char* completed;
};

const AliasCase aliasCases[] = {
    {"None", "", "localhost", 3306, "localhost::3306"},
    {"NoneAndNoHost", "", "", 3306, "::3306"},
    {"WithoutAPort", "Main", "localhost", 3307, "Main::3307"},
    {"WithItsPort", "Main::3306", "localhost", 3306, "Main::3306"},
    {"WithAnotherPort", "Main::3306", "localhost", 3307, "Main::3306::3307"},
    {"WithItsPortInTheMiddle", "Main::3306 (old)", "localhost", 3306, "Main::3306 (old)"},
    {"WithOneColon", "Main:3306", "localhost", 3306, "Main:3306::3306"},
    {"WithItsPortAtTheEndOfANumber", "Main::13306", "localhost", 3306, "Main::13306::3306"},
    {"PortZero", "", "localhost", 0, "localhost::0"},
    {"LargestPort", "Main", "localhost", 4294967295UL, "Main::4294967295"},
    {"PlaceholderInTheAlias", "100%s%n", "localhost", 1, "100%s%n::1"},
    {"PlaceholderInTheHost", "", "%s%s", 1, "%s%s::1"},
    {"HostThatContainsThePort", "", "a::1b", 1, "a::1b::1"},
};

class AliasCompletion : public testing::TestWithParam<AliasCase>
{
};

TEST_P(AliasCompletion, PutsThePortBehindIt)
{
    const AliasCase& row = GetParam();
    EXPECT_EQ(Bytes(connection::CompleteAlias(row.alias, row.host, row.port)), row.completed);
}

INSTANTIATE_TEST_SUITE_P(Aliases, AliasCompletion, testing::ValuesIn(aliasCases),
                         [](const auto& row) { return row.param.name; });

TEST(CompleteAlias, Kept_K71_TakesALongerNumberForThePort)
{
    EXPECT_EQ(Bytes(connection::CompleteAlias("Main::33060", "localhost", 3306)), "Main::33060");
}

struct NameCase
{
    const char* name;
    const char* given;
    const char* settingsPath;
    const char* database;
};

const NameCase nameCases[] = {
    {"FolderAndDatabase", "C:\\cfg::kalk", "C:\\cfg\\Server.ini", "kalk"},
    {"FileAndDatabase", "C:\\cfg\\my.ini::kalk", "C:\\cfg\\my.ini", "kalk"},
    {"FileWithCapitalEnding", "C:\\cfg\\MY.INI::kalk", "C:\\cfg\\MY.INI", "kalk"},
    {"BackslashesAndBlanksBehindTheFolder", "C:\\cfg\\ \\ ::kalk", "C:\\cfg\\Server.ini", "kalk"},
    {"ASlashBehindTheFolderStays", "/etc/cfg/::kalk", "/etc/cfg/\\Server.ini", "kalk"},
    {"AnEndingBehindTheEnding", "C:\\my.ini.bak::kalk", "C:\\my.ini.bak\\Server.ini", "kalk"},
    {"BackslashesBehindTheFile", "C:\\my.ini\\ ::kalk", "C:\\my.ini", "kalk"},
    {"BlanksAround", "  C:\\cfg::kalk  ", "C:\\cfg\\Server.ini", "kalk"},
    {"BlankBehindTheSeparatorStays", "C:\\cfg:: kalk", "C:\\cfg\\Server.ini", " kalk"},
    {"TheFirstSeparatorCounts", "a::b::c", "a\\Server.ini", "b::c"},
    {"ThreeColons", "a:::b", "a\\Server.ini", ":b"},
    {"NothingBehindTheSeparator", "C:\\cfg::", "C:\\cfg\\Server.ini", ""},
    {"NothingInFrontOfTheSeparator", "::kalk", "\\Server.ini", "kalk"},
    {"OnlyTheSeparator", "::", "\\Server.ini", ""},
    {"OneColon", "C:kalk", "\\Server.ini", "C:kalk"},
    {"OnlyBlanks", "   ", "\\Server.ini", ""},
};

class ConfiguredDatabaseName : public testing::TestWithParam<NameCase>
{
};

TEST_P(ConfiguredDatabaseName, IsCutAtTheSeparator)
{
    const connection::ConfiguredDatabase name = connection::SplitDatabaseName(GetParam().given);
    EXPECT_EQ(Bytes(name.settingsPath), GetParam().settingsPath);
    EXPECT_EQ(Bytes(name.database), GetParam().database);
}

INSTANTIATE_TEST_SUITE_P(Names, ConfiguredDatabaseName, testing::ValuesIn(nameCases),
                         [](const auto& row) { return row.param.name; });

TEST(SplitDatabaseName, Kept_K72_GivesAPlainNameTheSettingsPathInTheRoot)
{
    const connection::ConfiguredDatabase name = connection::SplitDatabaseName("kalk");
    EXPECT_EQ(Bytes(name.settingsPath), "\\Server.ini");
    EXPECT_EQ(Bytes(name.database), "kalk");
}

TEST(ServerIniFile, ReadsTheSectionOfTheServer)
{
    const IniFolder folder;
    const connection::ServerIniFile file(folder.Write("[Other]\nPort=1\n[SQL-Server]\nPort=2\n").c_str());
    EXPECT_EQ(Bytes(file.Value("Port")), "2");
    EXPECT_EQ(Bytes(file.Value("User")), "");
    EXPECT_EQ(Bytes(file.Value("User", "nobody")), "nobody");
}

TEST(ServerIniFile, GivesBytesWithTheSingleByteEncoding)
{
    const IniFolder folder;
    const connection::ServerIniFile file(folder.Write("[SQL-Server]\nUser=\xC3\xA4\xFC\n").c_str());
    EXPECT_EQ(Bytes(file.Value("User")), "\xC3\xA4\xFC");
    EXPECT_EQ(file.Value("User").GetEncodingType(), UT_ENCODING_DEFAULT);
}

} // namespace
