#include "unit/serverini/IniFileCase.h"

#include <gtest/gtest.h>

using namespace std::string_view_literals;

namespace {

const IniFileCase fileCases[] = {
    // lines and line ends
    {"LineFeed", "[SQL-Server]\nPort=3306\n"sv, "3306"},
    {"CarriageReturnLineFeed", "[SQL-Server]\r\nPort=3306\r\n"sv, "3306"},
    {"MixedLineEnds", "[SQL-Server]\r\nUser=x\nPort=3306\r\n"sv, "3306"},
    {"NoLastLineEnd", "[SQL-Server]\nPort=3306"sv, "3306"},
    {"NoLastLineEndAfterCarriageReturn", "[SQL-Server]\nPort=3306\r"sv, "3306"},
    {"EmptyLinesBetween", "\n\n[SQL-Server]\n\n\r\nPort=3306\n"sv, "3306"},
    {"EmptyFile", ""sv, "default"},
    {"OnlyLineEnds", "\n\r\n\n"sv, "default"},
    {"ZeroByteEndsTheTextOfItsLine",
     "[SQL-Server]\nPort=33\0"
     "06\nUser=x\n"sv,
     "33"},
    {"ZeroByteInTheKeyLeavesNoEntry", "[SQL-Server]\nPo\0rt=1\nPort=2\n"sv, "2"},
    {"ZeroByteInTheHeaderLeavesNoSection", "[SQL-\0Server]\nPort=1\n"sv, "default"},
    {"ZeroByteAtTheLineStart", "[SQL-Server]\n\0Port=1\nPort=2\n"sv, "2"},
    // sections
    {"SectionIgnoresLetterCase", "[sql-SERVER]\nPort=3306\n"sv, "3306"},
    {"SectionIgnoresBlanksInside", "[ \tSQL-Server\t ]\nPort=3306\n"sv, "3306"},
    {"SectionIgnoresBlanksOutside", " \t [SQL-Server] \t\nPort=3306\n"sv, "3306"},
    {"SectionKeepsBlanksInTheMiddle", "[SQL -Server]\nPort=3306\n"sv, "default"},
    {"SectionWithoutBracket", "[SQL-Server\nPort=3306\n"sv, "default"},
    {"HeaderWithoutBracketEndsNoSection", "[SQL-Server]\n[Other\nPort=3306\n"sv, "3306"},
    {"SectionOfALongerName", "[SQL-Server2]\nPort=3306\n"sv, "default"},
    {"SectionOfAShorterName", "[SQL-Serve]\nPort=3306\n"sv, "default"},
    {"SectionNameInQuotes", "[\"SQL-Server\"]\nPort=3306\n"sv, "default"},
    {"EmptySectionName", "[]\nPort=3306\n"sv, "default"},
    {"NoSection", "Port=3306\n"sv, "default"},
    {"EntryBeforeTheSection", "Port=1\n[SQL-Server]\nPort=2\n"sv, "2"},
    {"EntryOfAnotherSectionBefore", "[Other]\nPort=1\n[SQL-Server]\nPort=2\n"sv, "2"},
    {"EntryOfAnotherSectionBehind", "[SQL-Server]\nUser=x\n[Other]\nPort=1\n"sv, "default"},
    {"FirstSectionWins", "[SQL-Server]\nPort=1\n[SQL-Server]\nPort=2\n"sv, "1"},
    {"SecondSectionIsNotReadAlsoWhenTheKeyIsMissing", "[SQL-Server]\nUser=x\n[SQL-Server]\nPort=2\n"sv, "default"},
    {"SectionInAComment", ";[SQL-Server]\nPort=1\n"sv, "default"},
    {"SectionInAValue", "[Other]\nName=[SQL-Server]\nPort=1\n"sv, "default"},
    // keys
    {"KeyIgnoresLetterCase", "[SQL-Server]\npORT=3306\n"sv, "3306"},
    {"KeyIgnoresBlanksAround", "[SQL-Server]\n \tPort \t=3306\n"sv, "3306"},
    {"KeyOfALongerName", "[SQL-Server]\nPort2=3306\n"sv, "default"},
    {"KeyOfAShorterName", "[SQL-Server]\nPor=3306\n"sv, "default"},
    {"KeyInQuotes", "[SQL-Server]\n\"Port\"=3306\n"sv, "default"},
    {"FirstKeyWins", "[SQL-Server]\nPort=1\nPort=2\n"sv, "1"},
    {"FirstKeyWinsWhenEmpty", "[SQL-Server]\nPort=\nPort=2\n"sv, ""},
    {"EmptyKey", "[SQL-Server]\n=1\nPort=2\n"sv, "2"},
    {"FirstEqualsSignEndsTheKey", "[SQL-Server]\nPort=a=b\n"sv, "a=b"},
    {"KeyThatLooksLikeAValue", "[SQL-Server]\nUser=Port=1\nPort=2\n"sv, "2"},
    // values
    {"EmptyValueIsNotTheDefault", "[SQL-Server]\nPort=\n"sv, ""},
    {"EmptyValueAtTheFileEnd", "[SQL-Server]\nPort="sv, ""},
    {"BlanksAreNoValue", "[SQL-Server]\nPort= \t \r\n"sv, ""},
    {"BlanksAroundGo", "[SQL-Server]\nPort= \t\v\f33 06\t \f\v\r\n"sv, "33 06"},
    {"DoubleQuotesGo", "[SQL-Server]\nPort=\"3306\"\n"sv, "3306"},
    {"SingleQuotesGo", "[SQL-Server]\nPort='3306'\n"sv, "3306"},
    {"BlanksInsideQuotesStay", "[SQL-Server]\nPort=  \" 3306\t\"  \n"sv, " 3306\t"},
    {"OnlyOnePairOfQuotesGoes", "[SQL-Server]\nPort=\"\"3306\"\"\n"sv, "\"3306\""},
    {"UnequalQuotesStay", "[SQL-Server]\nPort=\"3306'\n"sv, "\"3306'"},
    {"OpeningQuoteAloneStays", "[SQL-Server]\nPort=\"3306\n"sv, "\"3306"},
    {"ClosingQuoteAloneStays", "[SQL-Server]\nPort=3306\"\n"sv, "3306\""},
    {"SingleQuoteCharacterStays", "[SQL-Server]\nPort=\"\n"sv, "\""},
    {"EmptyQuotes", "[SQL-Server]\nPort=\"\"\n"sv, ""},
    {"QuotesInsideStay", "[SQL-Server]\nPort=33\"0\"6\n"sv, "33\"0\"6"},
    {"TextBehindQuotesKeepsThem", "[SQL-Server]\nPort=\"33\" x\n"sv, "\"33\" x"},
    {"BytesAsTheyAre", "[SQL-Server]\nPort=\xE4\xF6\xFC\xDF \xC3\xA4\x80\x01\xFF\n"sv,
     "\xE4\xF6\xFC\xDF \xC3\xA4\x80\x01\xFF"},
    {"NonBreakingSpaceIsNoBlank", "[SQL-Server]\nPort=\xA0\x33\xA0\n"sv, "\xA0\x33\xA0"},
    // comments
    {"CommentIsSkipped", "[SQL-Server]\n;Port=1\nPort=2\n"sv, "2"},
    {"CommentBehindBlanksIsSkipped", "[SQL-Server]\n \t;Port=1\nPort=2\n"sv, "2"},
    {"InlineSemicolonBelongsToTheValue", "[SQL-Server]\nPort=3306 ; ours\n"sv, "3306 ; ours"},
    {"HashIsNoComment", "[SQL-Server]\n#Port=1\nPort=2\n"sv, "2"},
    {"SlashesAreNoComment", "[SQL-Server]\n//Port=1\n/Port=3\n"sv, "default"},
    // byte-order marks
    {"Utf8MarkInFrontOfAnEmptyLine", "\xEF\xBB\xBF\n[SQL-Server]\nPort=3306\n"sv, "3306"},
    {"Utf8MarkInFrontOfAComment", "\xEF\xBB\xBF; settings\n[SQL-Server]\nPort=3306\n"sv, "3306"},
    {"Utf8MarkAlone", "\xEF\xBB\xBF"sv, "default"},
    {"Utf16LowByteFirst",
     "\xFF\xFE[\0S\0Q\0L\0-\0S\0e\0r\0v\0e\0r\0]\0\r\0\n\0P\0o\0r\0t\0=\0"
     "3\0"
     "3\0\r\0\n\0"sv,
     "33"},
    {"Utf16WithoutLastLineEnd",
     "\xFF\xFE[\0S\0Q\0L\0-\0S\0e\0r\0v\0e\0r\0]\0\n\0P\0o\0r\0t\0=\0"
     "3\0"sv,
     "3"},
    {"Utf16MarkAlone", "\xFF\xFE"sv, "default"},
    {"Utf16WithoutMark",
     "[\0S\0Q\0L\0-\0S\0e\0r\0v\0e\0r\0]\0\n\0P\0o\0r\0t\0=\0"
     "3\0\n\0"sv,
     "default"},
};

TEST_P(IniFileTable, GivesItsValue)
{
    EXPECT_EQ(ValueIn(GetParam().bytes), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(Files, IniFileTable, testing::ValuesIn(fileCases), NameOfRow);

TEST(ReadIniValue, IgnoresTheLetterCaseOfWhatIsAskedFor)
{
    const IniFolder folder;
    EXPECT_EQ(ReadIni(folder.Write("[SQL-Server]\nPort=3306\n"), "sql-server", "PORT"), "3306");
}

TEST(ReadIniValue, IgnoresTheCaseOfLettersOnly)
{
    const IniFolder folder;
    const std::string path = folder.Write("[AZaz]\n`=1\n@=2\nAZBY=3\n\xC4=4\n\xE4=5\n");
    EXPECT_EQ(ReadIni(path, "azAZ", "@"), "2");
    EXPECT_EQ(ReadIni(path, "azAZ", "azby"), "3");
    EXPECT_EQ(ReadIni(path, "azAZ", "\xE4"), "5");
}

TEST(ReadIniValue, CutsAValueTo255Bytes)
{
    const IniFolder folder;
    for (const std::size_t length : {254U, 255U, 256U, 257U, 1000U, 20000U}) {
        const std::string path = folder.Write("[SQL-Server]\nPort=" + std::string(length, 'x') + "y\nUser=z\n");
        EXPECT_EQ(ReadIni(path), length < 255 ? std::string(length, 'x') + "y" : std::string(255, 'x')) << length;
        EXPECT_EQ(ReadIni(path, "SQL-Server", "User"), "z") << length;
    }
}

TEST(ReadIniValue, StripsQuotesBeforeItCuts)
{
    const IniFolder folder;
    for (const std::size_t length : {253U, 254U, 255U, 256U, 300U, 70000U}) {
        const std::string path = folder.Write("[SQL-Server]\nPort=\"" + std::string(length, 'x') + "\" \n");
        EXPECT_EQ(ReadIni(path), std::string(length < 255 ? length : 255, 'x')) << length;
    }
}

TEST(ReadIniValue, KeepsTheBlanksInFrontOfTheCut)
{
    const IniFolder folder;
    const std::string path = folder.Write("[SQL-Server]\nPort=a" + std::string(300, ' ') + "b\n");
    EXPECT_EQ(ReadIni(path), "a" + std::string(254, ' '));
}

TEST(ReadIniValue, CutsALongDefault)
{
    const IniFolder folder;
    EXPECT_EQ(ReadIni(folder.Path(), "SQL-Server", "Port", std::string(300, 'd').c_str()), std::string(255, 'd'));
}

TEST(ReadIniValue, ReadsANameOf256Bytes)
{
    const IniFolder folder;
    const std::string name(256, 'k');
    EXPECT_EQ(ReadIni(folder.Write("[" + name + "]\n" + name + "=1\n"), name.c_str(), name.c_str()), "1");
}

// Wherever a piece of the file ends, the value is the same.
TEST(ReadIniValue, ReadsAcrossTheEndsOfItsPieces)
{
    const IniFolder folder;
    for (std::size_t padding = 16384 - 40; padding < 16384 + 4; ++padding) {
        const std::string comment = ";" + std::string(padding, ';') + "\n";
        EXPECT_EQ(ReadIni(folder.Write(comment + "[SQL-Server]\r\nPort = \"3306\" \r\n")), "3306") << padding;
    }
}

TEST(ReadIniValue, ReadsUtf16AcrossTheEndsOfItsPieces)
{
    const IniFolder folder;
    for (std::size_t padding = 8192 - 30; padding < 8192 + 4; ++padding) {
        std::string bytes = "\xFF\xFE";
        for (const char character : std::string(padding, ';') + "\n[SQL-Server]\nPort=\"3306\"\n")
            bytes += {character, '\0'};
        EXPECT_EQ(ReadIni(folder.Write(bytes)), "3306") << padding;
    }
}

TEST(ReadIniValue, GivesTheDefaultForAMissingFile)
{
    const IniFolder folder;
    EXPECT_EQ(ReadIni(folder.PathOf("missing.ini")), "default");
    EXPECT_EQ(ReadIni(""), "default");
}

TEST(ReadIniValue, GivesTheDefaultForAFolder)
{
    const IniFolder folder;
    EXPECT_EQ(ReadIni(folder.Path()), "default");
}

} // namespace
