#include "TextSupport.h"

#include <climits>
#include <cmath>
#include <limits>
#include <utility>

TEST(UtCString, IsEmptyInTheDefaultEncodingByDefault)
{
    ExpectText(UtCString(), "", ansi);
}

TEST(UtCString, IsEmptyInTheEncodingGiven)
{
    ExpectText(UtCString(utf16be), "", utf16be);
    EXPECT_TRUE(UtCString(utf16be).IsEmpty());
}

TEST(UtCString, TakesACharTextAsItIsInAnEightBitEncoding)
{
    ExpectText(UtCString("a\xFC"), "a\xFC", ansi);
    ExpectText(UtCString("a\xC3\xBC", utf8), "a\xC3\xBC", utf8);
    ExpectText(UtCString("a\xFC", opaque), "a\xFC", opaque);
}

TEST(UtCString, ReadsACharTextAs1252WhereUtf16IsWanted)
{
    ExpectText(UtCString("\x80\xFC", utf16le), "\xAC\x20\xFC\x00"sv, utf16le);
    ExpectText(UtCString("\x80\xFC", utf16be), "\x20\xAC\x00\xFC"sv, utf16be);
}

TEST(UtCString, TakesNullAsTheEmptyText)
{
    const char* const none = nullptr;
    const wchar_t* const noneWide = nullptr;
    ExpectText(UtCString(none), "", ansi);
    ExpectText(UtCString(none, utf8), "", utf8);
    ExpectText(UtCString(none, utf8, utf16le), "", utf8);
    ExpectText(UtCString(noneWide, utf8), "", utf8);
    ExpectText(UtCString(std::string_view(), utf8), "", utf8);
}

TEST(UtCString, TakesTextsOfEveryLengthAroundTheInlineStorage)
{
    for (size_t length = 0; length < 70; ++length) {
        const std::string source(length, 'x');
        ExpectText(UtCString(source.c_str()), source, ansi);
        ExpectText(UtCString(source.c_str(), utf16le), Units(source, utf16le), utf16le);
        ExpectText(UtCString(std::string_view(source), utf8), source, utf8);
    }
}

TEST(UtCString, ConvertsFromTheSourceEncoding)
{
    ExpectText(UtCString("a\xC3\xBC", ansi, utf8), "a\xFC", ansi);
    ExpectText(UtCString("a\xFC", utf8, ansi), "a\xC3\xBC", utf8);
    ExpectText(UtCString("a\xFC", utf16be, ansi), "\0a\0\xFC"sv, utf16be);
    ExpectText(UtCString("a\xFC", ansi, ansi), "a\xFC", ansi);
}

TEST(UtCString, EndsAUtf16SourceAtItsZeroUnit)
{
    ExpectText(UtCString("a\0\x00\x01\0\0b\0\0\0", utf8, utf16le), "a\xC4\x80", utf8);
    ExpectText(UtCString("\0a\x01\x00\0\0\0b\0\0", utf8, utf16be), "a\xC4\x80", utf8);
}

TEST(UtCString, KeepsZerosOfAView)
{
    ExpectText(UtCString("a\0b"sv, ansi), "a\0b"sv, ansi);
    EXPECT_EQ(UtCString("a\0b"sv, ansi).GetLength(), 3);
}

TEST(UtCString, ConvertsAWideText)
{
    ExpectText(UtCString(L"a\u00FC\u20AC"), "a\xFC\x80", ansi);
    ExpectText(UtCString(L"\u4E2D"), "?", ansi);
    ExpectText(UtCString(L"\u4E2D\U0001F600", utf8), "\xE4\xB8\xAD\xF0\x9F\x98\x80", utf8);
    ExpectText(UtCString(L"\U0001F600", utf16le), "\x3D\xD8\x00\xDE"sv, utf16le);
    ExpectText(UtCString(L"", utf16le), "", utf16le);
}

TEST(UtCString, ReplacesWideUnitsThatAreNoCodePoint)
{
    const wchar_t surrogate[] = {L'a', static_cast<wchar_t>(0xDC00), L'b', 0};
    ExpectText(UtCString(surrogate, utf8),
               "a\xEF\xBF\xBD"
               "b",
               utf8);
    if (sizeof(wchar_t) == 4) {
        const wchar_t tooLarge[] = {static_cast<wchar_t>(0x7FFFFFFF), static_cast<wchar_t>(-1), 0};
        ExpectText(UtCString(tooLarge), "??", ansi);
    }
}

TEST(UtCString, TakesOnlyAsciiOfAWideTextWhereNothingIsConverted)
{
    ExpectText(UtCString(L"a\u00FC", opaque), "a?", opaque);
}

TEST(UtCString, CopiesDeeply)
{
    for (const char* source : {"short", "a text that does not fit into the inline storage"}) {
        const UtCString original(source, utf8);
        UtCString copy(original);
        copy += "!";
        EXPECT_EQ(Bytes(original), source);
        EXPECT_EQ(Bytes(copy), std::string(source) + "!");
    }
}

TEST(UtCString, LeavesTheSourceOfAMoveEmptyWithItsEncoding)
{
    for (const char* bytes : {"short", "a text that does not fit into the inline storage"}) {
        UtCString source(bytes, utf8);
        UtCString target(std::move(source));
        ExpectText(target, bytes, utf8);
        ExpectText(source, "", utf8); // NOLINT: the state after a move is promised
        UtCString assigned("another text, also one that is too long for the inline storage");
        assigned = std::move(target);
        ExpectText(assigned, bytes, utf8);
        ExpectText(target, "", utf8); // NOLINT
        source = "used again";
        ExpectText(source, "used again", utf8);
    }
}

TEST(UtCString, StaysItselfWhenAssignedToItself)
{
    for (const char* bytes : {"short", "a text that does not fit into the inline storage"}) {
        UtCString text(bytes, utf8);
        UtCString& same = text;
        text = same;
        ExpectText(text, bytes, utf8);
        text = std::move(same);
        ExpectText(text, bytes, utf8);
        text = text.string();
        ExpectText(text, bytes, utf8);
    }
}

TEST(UtCString, AssignsTextAndEncoding)
{
    UtCString text("before, and long enough to have left the inline storage");
    text = UtCString("\xC3\xBC", utf8);
    ExpectText(text, "\xC3\xBC", utf8);
    text = UtCString("after, and long enough to have left the inline storage", utf16le);
    EXPECT_EQ(text.GetEncodingType(), utf16le);
    EXPECT_EQ(text, "after, and long enough to have left the inline storage");
}

TEST(UtCString, ConvertsAnAssignedCharTextFrom1252)
{
    UtCString text(utf8);
    text = "\xFC";
    ExpectText(text, "\xC3\xBC", utf8);
    UtCString wide(utf16be);
    wide = "\xFC";
    ExpectText(wide, "\0\xFC"sv, utf16be);
    text = static_cast<const char*>(nullptr);
    ExpectText(text, "", utf8);
}

TEST(UtCString, AssignsATextThatPointsIntoItself)
{
    UtCString text("0123456789012345678901234567890123456789");
    text = text.string() + 30;
    ExpectText(text, "0123456789", ansi);
    UtCString converted("\xC3\xBC"
                        "0123456789012345678901234567890123456789",
                        utf8);
    converted = converted.string();
    ExpectText(converted,
               "\xC3\x83\xC2\xBC"
               "0123456789012345678901234567890123456789",
               utf8);
}

TEST(UtCString, WritesIntegersInDecimal)
{
    ExpectText(UtCString(static_cast<short>(-32768)), "-32768", ansi);
    ExpectText(UtCString(0), "0", ansi);
    ExpectText(UtCString(INT_MIN), "-2147483648", ansi);
    ExpectText(UtCString(4294967295U), "4294967295", ansi);
    ExpectText(UtCString(-2147483648L), "-2147483648", ansi);
    ExpectText(UtCString(4294967295UL), "4294967295", ansi);
    ExpectText(UtCString(LLONG_MIN), "-9223372036854775808", ansi);
    ExpectText(UtCString(ULLONG_MAX), "18446744073709551615", ansi);
}

TEST(UtCString, WritesNumbersInTheEncodingGiven)
{
    ExpectText(UtCString(-7, utf8), "-7", utf8);
    ExpectText(UtCString(static_cast<short>(-7), utf16le),
               "-\0"
               "7\0"sv,
               utf16le);
    ExpectText(UtCString(7L, utf16be),
               "\0"
               "7"sv,
               utf16be);
    ExpectText(UtCString(7UL, utf16be),
               "\0"
               "7"sv,
               utf16be);
    ExpectText(UtCString(7LL, opaque), "7", opaque);
    ExpectText(UtCString(0.5, utf16le),
               "0\0.\0"
               "5\0"sv,
               utf16le);
}

TEST(UtCString, Kept_K61_ReadsANegativeUnsignedLongAsThirtyTwoBits)
{
    EXPECT_EQ(Bytes(UtCString(static_cast<unsigned long>(-1))), "4294967295");
    EXPECT_EQ(Bytes(UtCString(static_cast<unsigned long>(-2147483647 - 1))), "2147483648");
}

TEST(UtCString, WritesDoublesAsShortAsTheyReadBack)
{
    const struct
    {
        double value;
        const char* expected;
    } rows[] = {
        {0.0, "0"},
        {-0.0, "-0"},
        {1.0, "1"},
        {0.1, "0.1"},
        {-2.5, "-2.5"},
        {0.30000000000000004, "0.30000000000000004"},
        {100000.0, "100000"},
        {1e14, "100000000000000"},
        {999999999999999.0, "999999999999999"},
        {1e15, "1e+15"},
        {0.00001, "0.00001"},
        {0.000009, "9e-06"},
        {1234567890123456789.0, "1.2345678901234568e+18"},
        {1.7976931348623157e308, "1.7976931348623157e+308"},
        {5e-324, "5e-324"},
        {std::numeric_limits<double>::infinity(), "inf"},
        {-std::numeric_limits<double>::infinity(), "-inf"},
        {std::numeric_limits<double>::quiet_NaN(), "nan"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Bytes(UtCString(row.value)), row.expected);
}

TEST(UtCString, WritesADoubleWithSoManyDecimals)
{
    const struct
    {
        double value;
        int width;
        const char* expected;
    } rows[] = {
        {32.0, 0, "32"},
        {32.0, 3, "32.000"},
        {32.0, -5, "32"},
        {-0.125, 2, "-0.12"},
        {1e20, 1, "100000000000000000000.0"},
        {2.0 / 3.0, 4, "0.6667"},
        {std::numeric_limits<double>::infinity(), 3, "inf"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Bytes(UtCString(row.value, row.width, ansi)), row.expected) << row.width;
}

TEST(UtCString, WritesAtMostAHundredDecimals)
{
    EXPECT_EQ(UtCString(32.0, 100, ansi).GetByteLength(), 103U);
    EXPECT_EQ(UtCString(32.0, INT_MAX, ansi).GetByteLength(), 103U);
    EXPECT_EQ(UtCString(-1.7976931348623157e308, INT_MAX, ansi).GetByteLength(), 411U);
    EXPECT_EQ(UtCString(32.0, 64, utf16le).GetByteLength(), 134U);
}
