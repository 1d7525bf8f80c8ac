#include "TextSupport.h"

#include <climits>

namespace {

const eUtEncodingType allEncodings[] = {ansi, utf8, utf16le, utf16be, opaque};

} // namespace

TEST(Substr, ClampsToTheText)
{
    const struct
    {
        int start;
        int count;
        const char* expected;
    } rows[] = {{0, -1, "abcdef"},
                {2, -1, "cdef"},
                {2, 3, "cde"},
                {-5, 2, "ab"},
                {0, 0, ""},
                {6, -1, ""},
                {7, 1, ""},
                {5, 9, "f"},
                {1, INT_MAX, "bcdef"},
                {INT_MAX, INT_MAX, ""},
                {INT_MIN, INT_MIN, "abcdef"}};
    for (const eUtEncodingType encoding : allEncodings) {
        for (const auto& row : rows) {
            const UtCString piece = Ascii("abcdef", encoding).substr(row.start, row.count);
            ExpectText(piece, Bytes(Ascii(row.expected, encoding)), encoding);
        }
    }
    EXPECT_EQ(Bytes(Text("abc").substr(1)), "bc");
}

TEST(Substr, CountsCharacters)
{
    const UtCString text("\xC3\xBC\xE2\x82\xAC\x80\xF0\x9F\x98\x80z", utf8);
    EXPECT_EQ(Bytes(text.substr(1, 1)), "\xE2\x82\xAC");
    EXPECT_EQ(Bytes(text.substr(2, 2)), "\x80\xF0\x9F\x98\x80");
    EXPECT_EQ(Bytes(text.substr(4)), "z");
    EXPECT_EQ(Bytes(Text("\x3D\xD8\x00\xDEz\0"sv, utf16le).substr(1)), "z\0"sv);
}

namespace {

struct Trimming
{
    const char* text;
    const char* set;
    const char* both;
    const char* left;
    const char* right;
};

} // namespace

TEST(Trim, RemovesTheCharactersOfASetFromTheEnds)
{
    const Trimming rows[] = {
        {"``t`x``", "`", "t`x", "t`x``", "``t`x"},
        {"  a b ", " ", "a b", "a b ", "  a b"},
        {"C:\\d \\ ", "\\ ", "C:\\d", "C:\\d \\ ", "C:\\d"},
        {"xyx", "xy", "", "", ""},
        {"abc", "", "abc", "abc", "abc"},
        {"", "x", "", "", ""},
        {"abc", "x", "abc", "abc", "abc"},
        {"x", "x", "", "", ""},
    };
    for (const eUtEncodingType encoding : allEncodings) {
        for (const Trimming& row : rows) {
            const UtCString text = Ascii(row.text, encoding);
            EXPECT_EQ(text.trim(row.set), Ascii(row.both, encoding)) << encoding << row.text;
            EXPECT_EQ(text.trimLeft(row.set), Ascii(row.left, encoding)) << encoding << row.text;
            EXPECT_EQ(text.trimRight(row.set), Ascii(row.right, encoding)) << encoding << row.text;
            EXPECT_EQ(text.trim(row.set).GetEncodingType(), encoding);
        }
    }
}

TEST(Trim, RemovesBlanksOnlyWithoutASet)
{
    for (const eUtEncodingType encoding : allEncodings) {
        EXPECT_EQ(Ascii("  a b\t ", encoding).trim(), Ascii("a b\t", encoding));
        EXPECT_EQ(Ascii("  a b\t ", encoding).trimRight(), Ascii("  a b\t", encoding));
        EXPECT_EQ(Ascii("\n ", encoding).trim(), Ascii("\n", encoding));
        EXPECT_EQ(Ascii("   ", encoding).trim(), Ascii("", encoding));
        EXPECT_EQ(Ascii("   ", encoding).trimRight(), Ascii("", encoding));
        EXPECT_EQ(Ascii("", encoding).trim(), Ascii("", encoding));
    }
    EXPECT_EQ(Bytes(Text("\xA0 ").trim()), "\xA0");
}

TEST(Trim, TakesWholeCharactersAcrossEncodings)
{
    EXPECT_EQ(Bytes(Text("\xC3\xBC\xC3\xA4z\xC3\xBC", utf8).trim(Text("\xFC"))), "\xC3\xA4z");
    EXPECT_EQ(Bytes(Text("z\xC3\xBC", utf8).trimRight(Text("\xBC", utf8))), "z\xC3\xBC");
    EXPECT_EQ(Bytes(Text("z\xC3\xBC\xBC", utf8).trimRight(Text("\xBC", utf8))), "z\xC3\xBC");
    EXPECT_EQ(Bytes(Text("?z?").trim(Text("\xE4\xB8\xAD", utf8))), "?z?");
    EXPECT_EQ(Bytes(Text("a\0\x3D\xD8\x00\xDE"sv, utf16le).trimRight(Text("\xF0\x9F\x98\x80", utf8))), "a\0"sv);
    EXPECT_EQ(Bytes(Text("a\0 \0b\0 \0 \0"sv, utf16le).trimRight()), "a\0 \0b\0"sv);
    EXPECT_EQ(Bytes(Text(" \0a\0 "sv, utf16le).trimRight()), " \0a\0 "sv); // ends in half a unit
}

namespace {

struct Cases
{
    const char* name;
    eUtEncodingType encoding;
    std::string_view text;
    std::string_view upper;
    std::string_view lower;
};

constexpr Cases cases[] = {
    {"Ascii", ansi, "aZ09_[`{@"sv, "AZ09_[`{@"sv, "az09_[`{@"sv},
    {"LongAscii", utf8, "The quick brown Fox jumps over the lazy Dog"sv,
     "THE QUICK BROWN FOX JUMPS OVER THE LAZY DOG"sv, "the quick brown fox jumps over the lazy dog"sv},
    {"Empty", utf8, ""sv, ""sv, ""sv},
    {"EmbeddedZero", ansi, "a\0B"sv, "A\0B"sv, "a\0b"sv},
    {"Umlauts", ansi, "\xE4\xF6\xFC\xC4\xD6\xDC"sv, "\xC4\xD6\xDC\xC4\xD6\xDC"sv, "\xE4\xF6\xFC\xE4\xF6\xFC"sv},
    {"SharpSHasNoUpperCase", ansi, "\xDF"sv, "\xDF"sv, "\xDF"sv},
    {"YDiaeresisIn1252", ansi, "\xFF\x9F"sv, "\x9F\x9F"sv, "\xFF\xFF"sv},
    {"CaronsIn1252", ansi, "\x9A\x9C\x9E\x8A\x8C\x8E"sv, "\x8A\x8C\x8E\x8A\x8C\x8E"sv, "\x9A\x9C\x9E\x9A\x9C\x9E"sv},
    {"UpperCaseNotIn1252Stays", ansi, "\x83\xB5"sv, "\x83\xB5"sv, "\x83\xB5"sv},
    {"SignsOf1252", ansi, "\xD7\xF7\xA0\x80"sv, "\xD7\xF7\xA0\x80"sv, "\xD7\xF7\xA0\x80"sv},
    {"MicroSignInUtf8", utf8, "\xC2\xB5"sv, "\xCE\x9C"sv, "\xC2\xB5"sv},
    {"Greek", utf8, "\xCE\xB1\xCF\x82\xCE\x91"sv, "\xCE\x91\xCE\xA3\xCE\x91"sv, "\xCE\xB1\xCF\x82\xCE\xB1"sv},
    {"Cyrillic", utf8, "\xD1\x8F\xD0\xAF"sv, "\xD0\xAF\xD0\xAF"sv, "\xD1\x8F\xD1\x8F"sv},
    {"UpperCaseIsShorterInUtf8", utf8, "a\xC4\xB1z"sv, "AIZ"sv, "a\xC4\xB1z"sv},
    {"LowerCaseIsLongerInUtf8", utf8, "\xC8\xBA"sv, "\xC8\xBA"sv, "\xE2\xB1\xA5"sv},
    {"KelvinSign", utf8, "\xE2\x84\xAA"sv, "\xE2\x84\xAA"sv, "k"sv},
    {"IWithDot", utf8, "\xC4\xB0"sv, "\xC4\xB0"sv, "i"sv},
    {"TitleCaseLetter", utf8, "\xC7\x85"sv, "\xC7\x84"sv, "\xC7\x86"sv},
    {"GreekWithIotaSubscript", utf8, "\xE1\xBE\x80"sv, "\xE1\xBE\x88"sv, "\xE1\xBE\x80"sv},
    {"Ligature", utf8, "\xEF\xAC\x81"sv, "\xEF\xAC\x81"sv, "\xEF\xAC\x81"sv},
    {"Deseret", utf8, "\xF0\x90\x90\xA8"sv, "\xF0\x90\x90\x80"sv, "\xF0\x90\x90\xA8"sv},
    {"DeseretInUtf16", utf16be, "\xD8\x01\xDC\x28"sv, "\xD8\x01\xDC\x00"sv, "\xD8\x01\xDC\x28"sv},
    {"UnitsOfTwoAsciiBytes", utf16le, "aaaa\x61\x01Z\0"sv, "aaaa\x60\x01Z\0"sv, "aaaa\x61\x01z\0"sv},
    {"UnitsOfTwoAsciiBytesBigEndian", utf16be, "AAaa\0z"sv, "AAaa\0Z"sv, "AAaa\0z"sv},
    {"MalformedStays", utf8, "a\xFC\xE2\x82Z"sv, "A\xFC\xE2\x82Z"sv, "a\xFC\xE2\x82z"sv},
    {"SurrogateStays", utf16le, "a\0\x3D\xD8Z"sv, "A\0\x3D\xD8Z"sv, "a\0\x3D\xD8Z"sv},
    {"OpaqueAsciiOnly", opaque, "a\xFCZ"sv, "A\xFCZ"sv, "a\xFCz"sv},
};

class LetterCaseOf : public testing::TestWithParam<Cases>
{
};

} // namespace

TEST_P(LetterCaseOf, ChangesACopy)
{
    const Cases& row = GetParam();
    const UtCString text(row.text, row.encoding);
    ExpectText(text.toUpper(), row.upper, row.encoding);
    ExpectText(text.toLower(), row.lower, row.encoding);
    ExpectText(text, row.text, row.encoding);
}

TEST_P(LetterCaseOf, ChangesInPlace)
{
    const Cases& row = GetParam();
    UtCString text(row.text, row.encoding);
    text.SetToUpper();
    ExpectText(text, row.upper, row.encoding);
    text = UtCString(row.text, row.encoding);
    text.SetToLower();
    ExpectText(text, row.lower, row.encoding);
}

INSTANTIATE_TEST_SUITE_P(Rows, LetterCaseOf, testing::ValuesIn(cases),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Replace, ReplacesEveryOccurrence)
{
    const struct
    {
        const char* text;
        const char* oldText;
        const char* newText;
        const char* expected;
    } rows[] = {
        {"a.b.c", ".", " - ", "a - b - c"},
        {"aaaa", "aa", "b", "bb"},
        {"aaa", "aa", "b", "ba"},
        {"aaa", "a", "aa", "aaaaaa"},
        {"abc", "x", "y", "abc"},
        {"abc", "", "y", "abc"},
        {"abc", "b", "", "ac"},
        {"", "a", "b", ""},
        {"abc", "abc", "", ""},
        {"abc", "ABC", "x", "abc"},
        {"x\r\ny\r\n", "\r\n", " ", "x y "},
    };
    for (const eUtEncodingType encoding : allEncodings) {
        for (const auto& row : rows) {
            const UtCString text = Ascii(row.text, encoding);
            const std::string expected = Bytes(Ascii(row.expected, encoding));
            ExpectText(text.replace(UtCString(row.oldText), UtCString(row.newText)), expected, encoding);
            ExpectText(text.replace(row.oldText, row.newText), expected, encoding);
            ExpectText(text.replace(Ascii(row.oldText, utf16be), row.newText, true), expected, encoding);
        }
    }
}

TEST(Replace, IgnoresLetterCaseOnRequest)
{
    EXPECT_EQ(Bytes(Text("abABaB").replace("ab", "x", false)), "xxx");
    EXPECT_EQ(Bytes(Text("\xE4\xC4").replace("\xC4", "x", false)), "xx");
    EXPECT_EQ(Bytes(Text("Ax\xC4\xB1y", utf8).replace("I", "", false)), "Axy");
    EXPECT_EQ(Bytes(Text("abc").replace("", "x", false)), "abc");
}

TEST(Replace, ConvertsItsArguments)
{
    EXPECT_EQ(Bytes(Text("a\xC3\xBCz", utf8).replace(Text("\xFC"), Text("\xE4"))), "a\xC3\xA4z");
    EXPECT_EQ(Bytes(Text("a\xC3\xBCz", utf8).replace("\xFC", "\xE4")), "a\xC3\xA4z");
    EXPECT_EQ(Bytes(Text("a\xFCz").replace("\xC3\xBC", "\xC3\xA4", utf8)), "a\xE4z");
    EXPECT_EQ(Bytes(Text("a\xFCz").replace("\xFC", "\xE4", utf16le)), "a\xE4z");
    EXPECT_EQ(Bytes(Text("a?z").replace(Text("\xE4\xB8\xAD", utf8), Text("x"))), "a?z");
    EXPECT_EQ(Bytes(Text("az").replace(Text("a"), Text("\xE4\xB8\xAD", utf8))), "?z");
    EXPECT_EQ(Bytes(Text("\xC3\xBC", utf8).replace(Text("\xBC", utf8), Text("x"))), "\xC3\xBC");
}

TEST(Replace, TakesNullAsTheEmptyText)
{
    const char* const none = nullptr;
    EXPECT_EQ(Bytes(Text("abc").replace(none, "x")), "abc");
    EXPECT_EQ(Bytes(Text("abc").replace("b", none)), "ac");
}

TEST(Replace, ReplacesACharacter)
{
    EXPECT_EQ(Bytes(Text("a\xFC\xFC").replace('\xFC', 'u')), "auu");
    EXPECT_EQ(Bytes(Text("a\xC3\xBC", utf8).replace('\xFC', '\xE4')), "a\xC3\xA4");
    EXPECT_EQ(Bytes(Text("a\0b"sv).replace('\0', ' ')), "a b");
}

TEST(Replace, ReplacesAWideCharacter)
{
    EXPECT_EQ(Bytes(UtCString("a\rb\n", utf16le).replace(L'\r', L' ')), "a\0 \0b\0\n\0"sv);
    EXPECT_EQ(Bytes(Text("a\x80").replace(L'\u20AC', L'\u00FC')), "a\xFC");
    EXPECT_EQ(Bytes(Text("a?").replace(L'\u4E2D', L'x')), "a?");
    EXPECT_EQ(Bytes(Text("ab").replace(L'a', L'\u4E2D')), "?b");
    EXPECT_EQ(Bytes(Text("a\xEF\xBF\xBD\xED\xA0\x80", utf8).replace(static_cast<wchar_t>(0xD800), L'x')),
              "a\xEF\xBF\xBD\xED\xA0\x80");
    EXPECT_EQ(Bytes(Text("ab", utf8).replace(L'a', static_cast<wchar_t>(0xD800))), "\xEF\xBF\xBD"
                                                                                   "b");
    EXPECT_EQ(Bytes(Text("ab").replace(L'\0', L'x')), "ab");
}

TEST(Delete, DeletesCharacters)
{
    const struct
    {
        int position;
        int count;
        const char* expected;
    } rows[] = {{0, 1, "bcdef"},      {5, 1, "abcde"},   {1, 3, "aef"},          {0, 6, ""},
                {4, INT_MAX, "abcd"}, {6, 1, "abcdef"},  {INT_MAX, 1, "abcdef"}, {-1, 1, "abcdef"},
                {0, 0, "abcdef"},     {0, -1, "abcdef"}, {0, INT_MIN, "abcdef"}};
    for (const eUtEncodingType encoding : allEncodings) {
        for (const auto& row : rows) {
            UtCString text = Ascii("abcdef", encoding);
            text.Delete(row.position, row.count);
            ExpectText(text, Bytes(Ascii(row.expected, encoding)), encoding);
        }
    }
    UtCString text("\xC3\xBC\xE2\x82\xACz", utf8);
    text.Delete(1);
    EXPECT_EQ(Bytes(text), "\xC3\xBCz");
}

TEST(Remove, RemovesEveryOccurrence)
{
    UtCString text("2024-03-05");
    text.Remove("-");
    ExpectText(text, "20240305", ansi);
    text.Remove("x");
    ExpectText(text, "20240305", ansi);
    text.Remove("");
    ExpectText(text, "20240305", ansi);
    text.Remove(text);
    ExpectText(text, "", ansi);
    UtCString nested("aabb", utf16le);
    nested.Remove("ab");
    EXPECT_EQ(nested, "ab");
}

TEST(Append, ConvertsIntoTheEncodingOfTheText)
{
    UtCString text("a", utf8);
    text += "\xFC";
    text += '\xE4';
    text += Text("\0\xDF"sv, utf16be);
    ExpectText(text, "a\xC3\xBC\xC3\xA4\xC3\x9F", utf8);
    UtCString wide(utf16le);
    wide += Text("\xF0\x9F\x98\x80", utf8);
    ExpectText(wide, "\x3D\xD8\x00\xDE"sv, utf16le);
    UtCString opaqueText("\xFF", opaque);
    opaqueText += Text("\xC3\xBC", utf8);
    ExpectText(opaqueText, "\xFF\xC3\xBC", opaque);
}

TEST(Append, KeepsZerosAndTakesNullAsNothing)
{
    UtCString text("a");
    text += Text("\0b"sv);
    text += '\0';
    text += static_cast<const char*>(nullptr);
    ExpectText(text, "a\0b\0"sv, ansi);
}

TEST(Append, TakesTheTextItself)
{
    for (const char* bytes : {"abc", "a text that nearly fills", "a text that does not fit into the inline storage"}) {
        UtCString text(bytes);
        text += text;
        ExpectText(text, std::string(bytes) + bytes, ansi);
        text += text.string() + 1;
        ExpectText(text, std::string(bytes) + bytes + (bytes + 1) + bytes, ansi);
    }
}

TEST(Append, GrowsToAnyLength)
{
    UtCString text;
    std::string expected;
    for (int index = 0; index < 5000; ++index) {
        text += static_cast<char>('a' + index % 26);
        expected += static_cast<char>('a' + index % 26);
    }
    ExpectText(text, expected, ansi);
}

TEST(Append, TakesNewMemorySeldomForManySmallPieces)
{
    UtCString text;
    int moves = 0;
    for (int index = 0; index < 100000; ++index) {
        const char* const before = text.string();
        text += 'x';
        moves += text.string() != before ? 1 : 0;
    }
    EXPECT_LE(moves, 20);
}

TEST(AppendBytes, TakesBytesAsTheyAre)
{
    UtCString text("a", utf8);
    text.AppendBytes("\xC3").AppendBytes("\xBC");
    ExpectText(text, "a\xC3\xBC", utf8);
    text.AppendBytes(text.View().substr(1));
    ExpectText(text, "a\xC3\xBC\xC3\xBC", utf8);
}

TEST(Plus, LeavesItsOperands)
{
    const UtCString text("a\xC3\xBC", utf8);
    ExpectText(text + UtCString("\xE4"), "a\xC3\xBC\xC3\xA4", utf8);
    ExpectText(text + "\xE4", "a\xC3\xBC\xC3\xA4", utf8);
    ExpectText(text + static_cast<const char*>(nullptr), "a\xC3\xBC", utf8);
    ExpectText(text + text + text,
               "a\xC3\xBC"
               "a\xC3\xBC"
               "a\xC3\xBC",
               utf8);
    ExpectText(text, "a\xC3\xBC", utf8);
}

TEST(Prepend, PutsATextInFront)
{
    UtCString text("b", utf16le);
    text.Prepend("a");
    ExpectText(text, "a\0b\0"sv, utf16le);
    text.Prepend("");
    ExpectText(text, "a\0b\0"sv, utf16le);
    text.Prepend(text);
    ExpectText(text, "a\0b\0a\0b\0"sv, utf16le);
}

TEST(Enclose, PutsATextBeforeAndAfter)
{
    UtCString text("name");
    text.Enclose("`");
    ExpectText(text, "`name`", ansi);
    text.Enclose("(", " = 1)");
    ExpectText(text, "(`name` = 1)", ansi);
    UtCString empty(utf8);
    empty.Enclose("'");
    ExpectText(empty, "''", utf8);
    UtCString same("ab");
    same.Enclose(same);
    ExpectText(same, "ababab", ansi);
    same.Enclose(same, "");
    ExpectText(same, "abababababab", ansi);
    UtCString wide("x", utf16be);
    wide.Enclose(Text("\xC3\xBC", utf8), Text("\xE4"));
    ExpectText(wide, "\0\xFC\0x\0\xE4"sv, utf16be);
}

TEST(SetEmpty, KeepsTheEncoding)
{
    UtCString text("abc", utf16le);
    text.SetEmpty();
    ExpectText(text, "", utf16le);
}

TEST(JoinFilePath, PutsExactlyOneSeparatorBetween)
{
    const struct
    {
        const char* directory;
        const char* name;
        const char* expected;
    } rows[] = {
        {"C:\\data", "t.frm", "C:\\data\\t.frm"},
        {"C:\\data\\", "t.frm", "C:\\data\\t.frm"},
        {"C:\\data", "\\t.frm", "C:\\data\\t.frm"},
        {"C:\\data\\\\", "\\\\t.frm", "C:\\data\\t.frm"},
        {"/var/lib/", "t.frm", "/var/lib\\t.frm"},
        {"/var/lib", "/t.frm", "/var/lib\\t.frm"},
        {"C:\\a/b\\/", "/\\c\\d", "C:\\a/b\\c\\d"},
        {"", "t.frm", "t.frm"},
        {"", "\\t.frm", "\\t.frm"},
        {"C:\\data", "", "C:\\data"},
        {"C:\\data\\", "", "C:\\data\\"},
        {"\\", "t", "\\t"},
        {"C:", "\\", "C:\\"},
        {"", "", ""},
    };
    for (const eUtEncodingType encoding : {ansi, utf8, utf16le})
        for (const auto& row : rows)
            EXPECT_EQ(UtCString::JoinFilePath(Ascii(row.directory, encoding), row.name), row.expected);
}

TEST(JoinFilePath, HasTheEncodingOfTheDirectory)
{
    ExpectText(UtCString::JoinFilePath(Text("\xC3\xBC", utf8), Text("\xE4")), "\xC3\xBC\\\xC3\xA4", utf8);
    ExpectText(UtCString::JoinFilePath(Text("", utf8), Text("\xE4")), "\xC3\xA4", utf8);
}
