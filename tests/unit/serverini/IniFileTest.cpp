#include "platform/IniFile.h"

#include "IniFolder.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace std::string_view_literals;

namespace {

std::string Read(const std::string& path, const char* section = "SQL-Server", const char* key = "Port",
                 const char* defaultValue = "default")
{
    const platform::IniValue value = platform::ReadIniValue(path, section, key, defaultValue);
    EXPECT_LE(value.length, platform::IniValue::maximumLength);
    EXPECT_EQ(value.text[value.length], '\0');
    return std::string(value.text, value.length);
}

struct FileCase
{
    const char* name;
    std::string_view bytes;
    std::string_view value; ///< of "Port" in "SQL-Server"; "default" when there is none
};

const FileCase fileCases[] = {
    // lines and line ends
    {"LineFeed", "[SQL-Server]\nPort=3306\n"sv, "3306"},
    {"CarriageReturnLineFeed", "[SQL-Server]\r\nPort=3306\r\n"sv, "3306"},
    {"MixedLineEnds", "[SQL-Server]\r\nUser=x\nPort=3306\r\n"sv, "3306"},
    {"NoLastLineEnd", "[SQL-Server]\nPort=3306"sv, "3306"},
    {"NoLastLineEndAfterCarriageReturn", "[SQL-Server]\nPort=3306\r"sv, "3306"},
    {"LoneCarriageReturnEndsNoLine", "[SQL-Server]\nPort=33\r06\n"sv, "33\r06"},
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
    {"SectionEndsAtTheFirstBracket", "[SQL-Server] ; our server ]\nPort=3306\n"sv, "3306"},
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
    {"LineWithoutEqualsSignIsNoEntry", "[SQL-Server]\nPort\nPort=2\n"sv, "2"},
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
    {"Utf16CutInsideAUnit",
     "\xFF\xFE[\0S\0Q\0L\0-\0S\0e\0r\0v\0e\0r\0]\0\n\0P\0o\0r\0t\0=\0"
     "3\0"
     "4"sv,
     "3"},
    {"Utf16BecomesWindows1252",
     "\xFF\xFE[\0S\0Q\0L\0-\0S\0e\0r\0v\0e\0r\0]\0\n\0P\0o\0r\0t\0=\0\xE4\x00\xAC\x20\x54\x01\x14\x20\xFF\x00\xA0\x00x\0\n\0"sv,
     "\xE4\x80?\x97\xFF\xA0x"},
    {"Utf16CharactersWithoutAPlace",
     "\xFF\xFE[\0S\0Q\0L\0-\0S\0e\0r\0v\0e\0r\0]\0\n\0P\0o\0r\0t\0=\0\x00\x01\x3D\xD8\x00\xDE\x85\x00x\0\n\0"sv,
     "????x"},
    {"Utf16MarkAlone", "\xFF\xFE"sv, "default"},
    {"Utf16HighByteFirst",
     "\xFE\xFF\0[\0S\0Q\0L\0-\0S\0e\0r\0v\0e\0r\0]\0\n\0P\0o\0r\0t\0=\0"
     "3\0\n"sv,
     "default"},
    {"Utf16WithoutMark",
     "[\0S\0Q\0L\0-\0S\0e\0r\0v\0e\0r\0]\0\n\0P\0o\0r\0t\0=\0"
     "3\0\n\0"sv,
     "default"},
};

class IniFileCase : public testing::TestWithParam<FileCase>
{
};

TEST_P(IniFileCase, GivesItsValue)
{
    const IniFolder folder;
    EXPECT_EQ(Read(folder.Write(GetParam().bytes)), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(Files, IniFileCase, testing::ValuesIn(fileCases),
                         [](const auto& row) { return row.param.name; });

TEST(ReadIniValue, Kept_K78_AUtf8MarkHidesTheFirstLine)
{
    const IniFolder folder;
    EXPECT_EQ(Read(folder.Write("\xEF\xBB\xBF[SQL-Server]\nPort=3306\n")), "default");
}

TEST(ReadIniValue, IgnoresTheLetterCaseOfWhatIsAskedFor)
{
    const IniFolder folder;
    EXPECT_EQ(Read(folder.Write("[SQL-Server]\nPort=3306\n"), "sql-server", "PORT"), "3306");
}

TEST(ReadIniValue, IgnoresTheCaseOfLettersOnly)
{
    const IniFolder folder;
    const std::string path = folder.Write("[AZaz]\n`=1\n@=2\nAZBY=3\n\xC4=4\n\xE4=5\n");
    EXPECT_EQ(Read(path, "azAZ", "@"), "2");
    EXPECT_EQ(Read(path, "azAZ", "azby"), "3");
    EXPECT_EQ(Read(path, "azAZ", "\xE4"), "5");
}

TEST(ReadIniValue, FindsNoKeyInAComment)
{
    const IniFolder folder;
    EXPECT_EQ(Read(folder.Write("[SQL-Server]\n;Port=1\n"), "SQL-Server", ";Port"), "default");
}

TEST(ReadIniValue, CutsAValueTo255Bytes)
{
    const IniFolder folder;
    for (const std::size_t length : {254U, 255U, 256U, 257U, 1000U, 20000U}) {
        const std::string path = folder.Write("[SQL-Server]\nPort=" + std::string(length, 'x') + "y\nUser=z\n");
        EXPECT_EQ(Read(path), length < 255 ? std::string(length, 'x') + "y" : std::string(255, 'x')) << length;
        EXPECT_EQ(Read(path, "SQL-Server", "User"), "z") << length;
    }
}

TEST(ReadIniValue, StripsQuotesBeforeItCuts)
{
    const IniFolder folder;
    for (const std::size_t length : {253U, 254U, 255U, 256U, 300U, 70000U}) {
        const std::string path = folder.Write("[SQL-Server]\nPort=\"" + std::string(length, 'x') + "\" \n");
        EXPECT_EQ(Read(path), std::string(length < 255 ? length : 255, 'x')) << length;
    }
}

TEST(ReadIniValue, KeepsTheBlanksInFrontOfTheCut)
{
    const IniFolder folder;
    const std::string path = folder.Write("[SQL-Server]\nPort=a" + std::string(300, ' ') + "b\n");
    EXPECT_EQ(Read(path), "a" + std::string(254, ' '));
}

TEST(ReadIniValue, CutsALongDefault)
{
    const IniFolder folder;
    EXPECT_EQ(Read(folder.Path(), "SQL-Server", "Port", std::string(300, 'd').c_str()), std::string(255, 'd'));
}

TEST(ReadIniValue, FindsNoNameOfMoreThan256Bytes)
{
    const IniFolder folder;
    const std::string longName(300, 'k');
    const std::string path = folder.Write("[" + longName + "]\n" + longName + "=1\nk=2\n");
    EXPECT_EQ(Read(path, longName.c_str(), "k"), "default");
    EXPECT_EQ(Read(folder.Write("[s]\n" + longName + "=1\nk=2\n"), "s", longName.c_str()), "default");
    EXPECT_EQ(Read(folder.Write("[s]\n" + longName + "=1\n"), "s", std::string(256, 'k').c_str()), "default");
}

TEST(ReadIniValue, ReadsANameOf256Bytes)
{
    const IniFolder folder;
    const std::string name(256, 'k');
    EXPECT_EQ(Read(folder.Write("[" + name + "]\n" + name + "=1\n"), name.c_str(), name.c_str()), "1");
}

// Wherever a piece of the file ends, the value is the same.
TEST(ReadIniValue, ReadsAcrossTheEndsOfItsPieces)
{
    const IniFolder folder;
    for (std::size_t padding = 16384 - 40; padding < 16384 + 4; ++padding) {
        const std::string comment = ";" + std::string(padding, ';') + "\n";
        EXPECT_EQ(Read(folder.Write(comment + "[SQL-Server]\r\nPort = \"3306\" \r\n")), "3306") << padding;
    }
}

TEST(ReadIniValue, ReadsUtf16AcrossTheEndsOfItsPieces)
{
    const IniFolder folder;
    for (std::size_t padding = 8192 - 30; padding < 8192 + 4; ++padding) {
        std::string bytes = "\xFF\xFE";
        for (const char character : std::string(padding, ';') + "\n[SQL-Server]\nPort=\"3306\"\n")
            bytes += {character, '\0'};
        EXPECT_EQ(Read(folder.Write(bytes)), "3306") << padding;
    }
}

TEST(ReadIniValue, GivesTheDefaultForAMissingFile)
{
    const IniFolder folder;
    EXPECT_EQ(Read(folder.PathOf("missing.ini")), "default");
    EXPECT_EQ(Read(""), "default");
}

TEST(ReadIniValue, GivesTheDefaultForAFolder)
{
    const IniFolder folder;
    EXPECT_EQ(Read(folder.Path()), "default");
}

TEST(ReadIniValue, GivesTheDefaultForAPipeAndDoesNotWait)
{
    const IniFolder folder;
    ASSERT_EQ(mkfifo(folder.PathOf("pipe.ini").c_str(), 0600), 0);
    EXPECT_EQ(Read(folder.PathOf("pipe.ini")), "default");
}

TEST(ReadIniValue, GivesTheDefaultForADevice)
{
    EXPECT_EQ(Read("/dev/zero"), "default");
}

TEST(ReadIniValue, GivesTheDefaultWhenReadingFails)
{
    EXPECT_EQ(Read("/proc/self/mem"), "default") << "a regular file whose first page cannot be read";
}

TEST(ReadIniValue, LeavesNoFileOpen)
{
    const IniFolder folder;
    const std::string path = folder.Write("[SQL-Server]\nPort=1\n");
    const int before = open("/dev/null", O_RDONLY | O_CLOEXEC);
    close(before);
    EXPECT_EQ(Read(path), "1");
    EXPECT_EQ(Read(folder.Path()), "default");
    const int after = open("/dev/null", O_RDONLY | O_CLOEXEC);
    close(after);
    EXPECT_EQ(after, before);
}

} // namespace
