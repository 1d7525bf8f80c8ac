#include "TextSupport.h"

#include <algorithm>

namespace {

const eUtEncodingType textEncodings[] = {ansi, utf8, utf16le, utf16be};

struct SameText
{
    const char* name;
    std::string_view utf8Bytes;
};

constexpr SameText sameTexts[] = {
    {"Empty", ""sv},
    {"Ascii", "ERFASST"sv},
    {"AsciiOfEight", "ERF_TIME"sv},
    {"AsciiOfNine", "ERF_TIMES"sv},
    {"LongAscii", "a text that does not fit into the inline storage of a text"sv},
    {"Umlauts", "\xC3\xBC"
                "ber\xC3\x9F"sv},
    {"UmlautAtTheEndOfAWord", "1234567\xC3\xBC"sv},
    {"Euro", "\xE2\x82\xAC"sv},
    {"EmbeddedZero", "a\0\xC3\xBC"sv},
    {"TrailingZero", "a\0"sv},
    {"C1", "\xC2\x81\xC2\x9D"sv},
};

class ComparingTheSameText : public testing::TestWithParam<SameText>
{
};

} // namespace

TEST_P(ComparingTheSameText, FindsItEqualInAllEncodings)
{
    const UtCString source(GetParam().utf8Bytes, utf8);
    for (const eUtEncodingType left : textEncodings) {
        for (const eUtEncodingType right : textEncodings) {
            EXPECT_TRUE(UtCString(source, left) == UtCString(source, right)) << left << ' ' << right;
            EXPECT_FALSE(UtCString(source, left) != UtCString(source, right)) << left << ' ' << right;
            EXPECT_FALSE(UtCString(source, left) < UtCString(source, right)) << left << ' ' << right;
            EXPECT_TRUE(UtCString(source, left).EqualNoCase(UtCString(source, right))) << left << ' ' << right;
        }
    }
}

TEST_P(ComparingTheSameText, GivesTheSameHashInAllEncodings)
{
    const UtCString source(GetParam().utf8Bytes, utf8);
    for (const eUtEncodingType encoding : textEncodings)
        EXPECT_EQ(UtCString(source, encoding).Hash(), source.Hash()) << encoding;
}

TEST_P(ComparingTheSameText, FindsALongerTextDifferent)
{
    const UtCString source(GetParam().utf8Bytes, utf8);
    for (const eUtEncodingType encoding : textEncodings) {
        const UtCString longer = UtCString(source, encoding) + Text("\0"sv);
        EXPECT_FALSE(source == longer) << encoding;
        EXPECT_TRUE(source != longer) << encoding;
        EXPECT_TRUE(source < longer) << encoding;
        EXPECT_FALSE(longer < source) << encoding;
        EXPECT_FALSE(source.EqualNoCase(longer)) << encoding;
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, ComparingTheSameText, testing::ValuesIn(sameTexts),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(UtCString, ComparesLetterCaseExactly)
{
    EXPECT_FALSE(Text("abc") == Text("aBc"));
    EXPECT_FALSE(Text("a text that does not fit into the inline storage") ==
                 Text("a text that does not fit into the inline StoragE"));
}

TEST(UtCString, ComparesWithACharTextIn1252)
{
    EXPECT_TRUE(Text("a\xFC") == "a\xFC");
    EXPECT_TRUE(Text("a\xC3\xBC", utf8) == "a\xFC");
    EXPECT_TRUE(UtCString("a\xFC", utf16be) == "a\xFC");
    EXPECT_TRUE("a\xFC" == Text("a\xFC"));
    EXPECT_TRUE(Text("a\xFC") != "a\xFC "
                                 "");
    EXPECT_FALSE(Text("a\0"sv) == "a");
    EXPECT_TRUE(Text("") == static_cast<const char*>(nullptr));
    EXPECT_TRUE(Text("a", utf8) != static_cast<const char*>(nullptr));
}

TEST(UtCString, FindsAMalformedByteEqualOnlyToItself)
{
    EXPECT_FALSE(Text("\xFC", utf8) == Text("\xFC", ansi));
    EXPECT_FALSE(Text("\xFC", utf8) == Text("\xFD", utf8));
    EXPECT_FALSE(Text("\xFC", utf8) == Text("\xEF\xBF\xBD", utf8));
    EXPECT_TRUE(Text("a\xFC", utf8) == Text("a\xFC", opaque));
    EXPECT_EQ(Text("a\xFC", utf8).Hash(), Text("a\xFC", opaque).Hash());
    EXPECT_TRUE(Text("a\0\xFC"sv, utf16le) == Text("a\xFC", utf8));
    EXPECT_EQ(Text("a\0\xFC"sv, utf16le).Hash(), Text("a\xFC", utf8).Hash());
    EXPECT_TRUE(Text("\xD8\x3D"sv, utf16be) == Text("\x3D\xD8"sv, utf16le));
    EXPECT_EQ(Text("\xD8\x3D"sv, utf16be).Hash(), Text("\x3D\xD8"sv, utf16le).Hash());
    EXPECT_FALSE(Text("\xD8\x3D"sv, utf16be) == Text("\xFF\xFD"sv, utf16be));
}

TEST(UtCString, TakesAsciiOfAnOpaqueTextForAscii)
{
    EXPECT_TRUE(Text("abc", opaque) == Text("abc"));
    EXPECT_FALSE(Text("\xFC", opaque) == Text("\xFC"));
    EXPECT_EQ(Text("abc", opaque).Hash(), Text("abc").Hash());
}

TEST(UtCString, OrdersByCodePoint)
{
    // Each is less than every later one, whatever the encodings.
    const std::vector<UtCString> ordered = {
        Text(""),
        Text("\0"sv),
        Text("A"),
        UtCString("AA", utf16le),
        Text("B", utf8),
        Text("a"),
        Text("a\xE4"), // U+00E4
        Text("b"),
        Text("\xC3\xA4", utf8),              // U+00E4
        Text("\xE4\xB8\xAD", utf8),          // U+4E2D
        Text("\xFF\xEE"sv, utf16le),         // U+EEFF
        Text("\xFF\xFD"sv, utf16be),         // U+FFFD
        Text("\xD8\x3D\xDE\x00"sv, utf16be), // U+1F600, of smaller units
        Text("\xF4\x8F\xBF\xBF"sv, utf8),    // U+10FFFF
        Text("\x80"sv, utf8),                // malformed
        Text("\xFF"sv, utf8),                // malformed
    };
    for (size_t left = 0; left < ordered.size(); ++left)
        for (size_t right = 0; right < ordered.size(); ++right)
            EXPECT_EQ(ordered[left] < ordered[right], left < right) << left << ' ' << right;
}

TEST(UtCString, OrdersBytesOf1252ByTheirCodePoints)
{
    EXPECT_TRUE(Text("\xFF") < Text("\x80")); // U+00FF, U+20AC
    EXPECT_FALSE(Text("\x80") < Text("\xFF"));
}

TEST(UtCString, GivesDifferentHashesToDifferentTexts)
{
    std::vector<uint64_t> hashes;
    for (int number = 0; number < 20000; ++number)
        hashes.push_back(UtCString(number).Hash());
    for (size_t length = 0; length < 100; ++length)
        hashes.push_back(Text(std::string(length, '\0')).Hash());
    std::sort(hashes.begin(), hashes.end());
    EXPECT_EQ(std::adjacent_find(hashes.begin(), hashes.end()), hashes.end());
}

TEST(EqualNoCase, IgnoresLetterCase)
{
    EXPECT_TRUE(Text("Localhost").EqualNoCase(Text("LOCALHOST")));
    EXPECT_TRUE(Text("\xE4\xFF").EqualNoCase(Text("\xC4\x9F")));
    EXPECT_TRUE(Text("\xE4").EqualNoCase(Text("\xC3\x84", utf8)));
    EXPECT_TRUE(Text("\xCE\xB1\xD1\x8F", utf8).EqualNoCase(Text("\xCE\x91\xD0\xAF", utf8)));
    EXPECT_TRUE(UtCString("abc", utf16le).EqualNoCase(UtCString("ABC", utf16be)));
    EXPECT_FALSE(Text("abc").EqualNoCase(Text("abcd")));
    EXPECT_FALSE(Text("stra\xDF"
                      "e")
                     .EqualNoCase(Text("STRASSE")));
    EXPECT_FALSE(Text("[").EqualNoCase(Text("{")));
    EXPECT_FALSE(Text("@").EqualNoCase(Text("`")));
}

TEST(EqualNoCase, FindsAllTextsWithTheSameUpperCaseEqual)
{
    EXPECT_TRUE(Text("\xCF\x82", utf8).EqualNoCase(Text("\xCF\x83", utf8))); // final and other sigma
    EXPECT_TRUE(Text("\xC4\xB1", utf8).EqualNoCase(Text("i")));              // i without dot
    EXPECT_TRUE(Text("\xB5").EqualNoCase(Text("\xCE\xBC", utf8)));           // micro sign, mu
}

TEST(EqualNoCase, ReadsACharTextInTheEncodingGiven)
{
    EXPECT_TRUE(Text("\xC4").EqualNoCase("\xE4"));
    EXPECT_TRUE(Text("\xC4").EqualNoCase("\xC3\xA4", utf8));
    EXPECT_TRUE(Text("\xC4").EqualNoCase("\xE4", utf16le));
    EXPECT_FALSE(Text("\xC4").EqualNoCase("\xC3\xA4"));
    EXPECT_TRUE(Text("").EqualNoCase(static_cast<const char*>(nullptr)));
}

TEST(CompareToNoCase, GivesNegativeZeroOrPositive)
{
    EXPECT_EQ(Text("ABC").CompareToNoCase(Text("abc")), 0);
    EXPECT_LT(Text("ABC").CompareToNoCase(Text("abd")), 0);
    EXPECT_GT(Text("abd").CompareToNoCase(Text("ABC")), 0);
    EXPECT_LT(Text("ab").CompareToNoCase(Text("ABC")), 0);
    EXPECT_GT(Text("ABC").CompareToNoCase(Text("ab")), 0);
    EXPECT_LT(Text("a").CompareToNoCase(Text("_")), 0); // "A" is less than "_"
    EXPECT_GT(Text("\xE4").CompareToNoCase(UtCString("Z", utf16le)), 0);
}
