#include "TextSupport.h"

#include <climits>

namespace {

const eUtEncodingType allEncodings[] = {ansi, utf8, utf16le, utf16be, opaque};

} // namespace

TEST(Search, FindsTextsInEveryEncoding)
{
    const struct
    {
        int start;
        const char* needle;
        int expected;
    } rows[] = {
        {0, "a", 0},     {0, "ab", 0},      {1, "ab", 3}, {0, "b", 1},        {2, "b", 4},  {0, "cab", 2},
        {0, "abcab", 0}, {0, "abcabc", -1}, {0, "x", -1}, {3, "abc", -1},     {-1, "b", 1}, {INT_MIN, "b", 1},
        {4, "b", 4},     {5, "b", -1},      {6, "b", -1}, {INT_MAX, "b", -1}, {0, "", 0},   {5, "", 5},
        {6, "", -1},     {INT_MAX, "", -1}, {-1, "", 0},
    };
    for (const eUtEncodingType encoding : allEncodings) {
        for (const eUtEncodingType needleEncoding : allEncodings) {
            for (const auto& row : rows) {
                EXPECT_EQ(Ascii("abcab", encoding).Search(row.start, Ascii(row.needle, needleEncoding)), row.expected)
                    << encoding << ' ' << needleEncoding << ' ' << row.start << ' ' << row.needle;
            }
        }
    }
}

TEST(Search, CountsInCharacters)
{
    const UtCString text("\xC3\xBC\xE2\x82\xAC\xF0\x9F\x98\x80z\xC3\xBC", utf8);
    for (const eUtEncodingType encoding : {utf8, utf16le, utf16be}) {
        const UtCString searched(text, encoding);
        EXPECT_EQ(searched.Search(0, Text("z")), 3) << encoding;
        EXPECT_EQ(searched.Search(0, Text("\x80")), 1) << encoding;
        EXPECT_EQ(searched.Search(1, Text("\xFC")), 4) << encoding;
        EXPECT_EQ(searched.Search(0, Text("\xF0\x9F\x98\x80z", utf8)), 2) << encoding;
        EXPECT_EQ(searched.Search(5, Text("\xFC")), -1) << encoding;
    }
}

TEST(Search, FindsACharacter)
{
    EXPECT_EQ(Text("a\xFC"
                   "b")
                  .Search(0, '\xFC'),
              1);
    EXPECT_EQ(Text("a\xC3\xBC"
                   "b",
                   utf8)
                  .Search(0, '\xFC'),
              1);
    EXPECT_EQ(UtCString("a\xFC", utf16be).Search(0, '\xFC'), 1);
    EXPECT_EQ(UtCString("a\xFC", utf16be).Search(0, '\xFC', utf16be), 1);
    EXPECT_EQ(Text("abcabc").Search(3, 'b'), 4);
    EXPECT_EQ(Text("abcabc").Search(5, 'b'), -1);
    EXPECT_EQ(Text("a\0b"sv).Search(0, '\0'), 1);
    EXPECT_EQ(Text("abc").Search(0, '\0'), -1);
}

TEST(Search, FindsNeitherPartsOfCharactersNorWhatTheEncodingCannotHold)
{
    const UtCString umlaut("\xC3\xBC", utf8);
    EXPECT_EQ(umlaut.Search(0, Text("\xBC", utf8)), -1);
    EXPECT_EQ(umlaut.Search(0, Text("\xC3", utf8)), -1);
    EXPECT_EQ(umlaut.Search(0, '\xBC', utf8), -1);
    EXPECT_EQ(Text("\xC3\xC3\xBC", utf8).Search(0, Text("\xC3", utf8)), 0);
    EXPECT_EQ(Text("\x3D\xD8\x00\xDE"sv, utf16le).Search(0, Text("\x00\xDE"sv, utf16le)), -1);
    EXPECT_EQ(Text("\x01\x02\x03\x04"sv, utf16le).Search(0, Text("\x02\x03"sv, utf16le)), -1);
    EXPECT_EQ(Text("a?b").Search(0, Text("\xE4\xB8\xAD", utf8)), -1);
}

TEST(FindOneOf, FindsTheFirstCharacterOfTheSet)
{
    const struct
    {
        const char* set;
        int start;
        int expected;
    } rows[] = {{"./-", 0, 2}, {"./-", 2, 2}, {"./-", 3, 5}, {"./-", 6, -1}, {"x", 0, -1},      {"", 0, -1},
                {"0", 0, 1},   {"1", -7, 0},  {"4", 8, -1},  {"4", 9, -1},   {"4", INT_MAX, -1}};
    for (const eUtEncodingType encoding : allEncodings)
        for (const auto& row : rows)
            EXPECT_EQ(Ascii("10.12/20", encoding).FindOneOf(row.set, row.start), row.expected)
                << encoding << ' ' << row.set << ' ' << row.start;
}

TEST(FindOneOf, ComparesCharactersAcrossEncodings)
{
    EXPECT_EQ(Text("a\xC3\xBC\xC3\xA4", utf8).FindOneOf(Text("\xE4\xDF")), 2);
    EXPECT_EQ(Text("a\xC3\xBC", utf8).FindOneOf(Text("\xBC", utf8)), -1);
    EXPECT_EQ(Text("a?").FindOneOf(Text("\xE4\xB8\xAD", utf8)), -1);
}

TEST(Contains, TellsWhetherATextOccurs)
{
    EXPECT_TRUE(Text("SELECT a INTO OUTFILE b").Contains(" INTO OUTFILE "));
    EXPECT_FALSE(Text("SELECT a into OUTFILE b").Contains(" INTO OUTFILE "));
    EXPECT_TRUE(Text("abc").Contains(""));
    EXPECT_TRUE(Text("").Contains(""));
    EXPECT_FALSE(Text("").Contains("a"));
    EXPECT_TRUE(UtCString("SELECT a UNION SELECT b", utf16le).Contains(" UNION "));
    EXPECT_TRUE(Text("a\0b"sv).Contains(Text("\0b"sv)));
}

TEST(StartsWith, ComparesExactlyOrIgnoresCase)
{
    for (const eUtEncodingType encoding : allEncodings) {
        const UtCString text = Ascii("Select * from t", encoding);
        EXPECT_TRUE(text.StartsWith("Select ", true)) << encoding;
        EXPECT_FALSE(text.StartsWith("SELECT ", true)) << encoding;
        EXPECT_TRUE(text.StartsWith("SELECT ", false)) << encoding;
        EXPECT_FALSE(text.StartsWith("SELECTED", false)) << encoding;
        EXPECT_FALSE(text.StartsWith("elect", false)) << encoding;
        EXPECT_TRUE(text.StartsWith("", true)) << encoding;
        EXPECT_TRUE(text.StartsWith("", false)) << encoding;
        EXPECT_TRUE(text.StartsWith(text, true)) << encoding;
        EXPECT_FALSE(text.StartsWith(text + "x", true)) << encoding;
    }
    EXPECT_TRUE(Text("").StartsWith("", true));
    EXPECT_FALSE(Text("").StartsWith("a", false));
}

TEST(StartsWith, ComparesCharactersAcrossEncodings)
{
    EXPECT_TRUE(Text("\xC3\xBC"
                     "ber",
                     utf8)
                    .StartsWith("\xDC", false));
    EXPECT_FALSE(Text("\xC3\xBC", utf8).StartsWith(Text("\xC3", utf8), true));
    EXPECT_FALSE(Text("?").StartsWith(Text("\xE4\xB8\xAD", utf8), true));
    EXPECT_FALSE(Text("a", utf16le).StartsWith("a", true));
}

TEST(EndsWith, ComparesExactlyOrIgnoresCase)
{
    for (const eUtEncodingType encoding : allEncodings) {
        const UtCString text = Ascii("C:\\Data\\", encoding);
        EXPECT_TRUE(text.EndsWith("Data\\", true)) << encoding;
        EXPECT_FALSE(text.EndsWith("DATA\\", true)) << encoding;
        EXPECT_TRUE(text.EndsWith("DATA\\", false)) << encoding;
        EXPECT_FALSE(text.EndsWith("Data", false)) << encoding;
        EXPECT_TRUE(text.EndsWith("", true)) << encoding;
        EXPECT_TRUE(text.EndsWith("", false)) << encoding;
        EXPECT_TRUE(text.EndsWith(text, true)) << encoding;
        EXPECT_FALSE(text.EndsWith(UtCString("x") + text, true)) << encoding;
    }
    EXPECT_TRUE(Text("").EndsWith("", true));
    EXPECT_FALSE(Text("").EndsWith("a", false));
}

TEST(EndsWith, ComparesWholeCharacters)
{
    EXPECT_TRUE(Text("a\xC3\xBC", utf8).EndsWith("\xDC", false));
    EXPECT_FALSE(Text("a\xC3\xBC", utf8).EndsWith(Text("\xBC", utf8), true));
    EXPECT_FALSE(Text("\x3D\xD8\x00\xDE"sv, utf16le).EndsWith(Text("\x00\xDE"sv, utf16le), true));
    EXPECT_TRUE(Text("\xCF\x83\xC4\xB1", utf8).EndsWith(Text("\xC2\xB5\xCE\xA3\x49", utf8).substr(1), false));
}

TEST(IsNumber, WantsASignAndDigits)
{
    const struct
    {
        const char* text;
        bool expected;
    } rows[] = {{"0", true},    {"0123456789", true}, {"-1", true},  {"+1", true},    {"", false},   {"-", false},
                {"+", false},   {"--1", false},       {"1-", false}, {" 1", false},   {"1 ", false}, {"1.0", false},
                {"1e5", false}, {"0x1", false},       {"a", false},  {"\xB2", false}, {"1a1", false}};
    for (const eUtEncodingType encoding : {ansi, utf8, utf16le, utf16be})
        for (const auto& row : rows)
            EXPECT_EQ(UtCString(UtCString(row.text), encoding).IsNumber(), row.expected) << encoding << ' ' << row.text;
    EXPECT_FALSE(Text("1\0"sv).IsNumber());
    EXPECT_FALSE(Text("\xD9\xA1", utf8).IsNumber()); // an Arabic digit
}

TEST(IsDigit, TellsWhetherADigitStandsThere)
{
    for (const eUtEncodingType encoding : {ansi, utf8, utf16le, utf16be}) {
        const UtCString text(UtCString("\xFC"
                                       "0a9"),
                             encoding);
        EXPECT_FALSE(text.IsDigit(0)) << encoding;
        EXPECT_TRUE(text.IsDigit(1)) << encoding;
        EXPECT_FALSE(text.IsDigit(2)) << encoding;
        EXPECT_TRUE(text.IsDigit(3)) << encoding;
        EXPECT_FALSE(text.IsDigit(4)) << encoding;
        EXPECT_FALSE(text.IsDigit(-1)) << encoding;
        EXPECT_FALSE(text.IsDigit(INT_MAX)) << encoding;
    }
    EXPECT_FALSE(Text("/").IsDigit(0));
    EXPECT_FALSE(Text(":").IsDigit(0));
}
