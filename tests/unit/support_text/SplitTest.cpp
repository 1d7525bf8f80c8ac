#include "TextSupport.h"

#include <climits>

namespace {

using Pieces = std::vector<std::string>;

struct Splitting
{
    const char* text;
    const char* separator;
    Pieces expected;
};

} // namespace

TEST(Tokenize, SplitsAtEveryOccurrence)
{
    const Splitting rows[] = {
        {"a,b,c", ",", {"a", "b", "c"}},
        {"a,,b,", ",", {"a", "", "b", ""}},
        {",", ",", {"", ""}},
        {"", ",", {""}},
        {"abc", ",", {"abc"}},
        {"a, b", ", ", {"a", "b"}},
        {"aXXXb", "XX", {"a", "Xb"}},
        {"abc", "", {"abc"}},
        {"db::path::x", "::", {"db", "path", "x"}},
        {"aXb", "x", {"aXb"}},
    };
    for (const eUtEncodingType encoding : {ansi, utf8, utf16le, utf16be, opaque}) {
        for (const Splitting& row : rows) {
            UtCStringList list;
            EXPECT_EQ(Ascii(row.text, encoding).Tokenize(row.separator, list), static_cast<int>(row.expected.size()));
            Pieces expected;
            for (const std::string& piece : row.expected)
                expected.push_back(Bytes(Ascii(piece, encoding)));
            EXPECT_EQ(Items(list), expected) << row.text;
            EXPECT_EQ(list.item(0).GetEncodingType(), encoding);
        }
    }
}

TEST(Tokenize, ReplacesWhatTheListHolds)
{
    UtCStringList list{"x", "y", "z"};
    EXPECT_EQ(Text("a;b").Tokenize(";", list), 2);
    EXPECT_EQ(Items(list), (Pieces{"a", "b"}));
}

TEST(Tokenize, SplitsAnItemOfItsTarget)
{
    UtCStringList list{"a text that does not fit;into the inline storage", ";"};
    EXPECT_EQ(list.item(0).Tokenize(list.item(1), list), 2);
    EXPECT_EQ(Items(list), (Pieces{"a text that does not fit", "into the inline storage"}));
}

TEST(Tokenize, ComparesWholeCharacters)
{
    UtCStringList list;
    EXPECT_EQ(Text("a\xC3\xBC"
                   "b",
                   utf8)
                  .Tokenize(Text("\xFC"), list),
              2);
    EXPECT_EQ(Items(list), (Pieces{"a", "b"}));
    EXPECT_EQ(Text("a\xC3\xBC"
                   "b",
                   utf8)
                  .Tokenize(Text("\xBC", utf8), list),
              1);
    EXPECT_EQ(Text("a\0b"sv).Tokenize(Text("\0"sv), list), 2);
}

TEST(TokenizeNumeric, FindsTheRunsOfDigits)
{
    const struct
    {
        const char* text;
        Pieces expected;
    } rows[] = {
        {"5.10.2024 07:08", {"5", "10", "2024", "07", "08"}},
        {"a1b22c333", {"1", "22", "333"}},
        {"12", {"12"}},
        {"-12", {"12"}},
        {"", {}},
        {"abc", {}},
        {"00", {"00"}},
        {"123456789012345678901234567890", {"123456789012345678901234567890"}},
    };
    for (const eUtEncodingType encoding : {ansi, utf8, utf16le, utf16be, opaque}) {
        for (const auto& row : rows) {
            UtCStringList list{"before"};
            EXPECT_EQ(Ascii(row.text, encoding).TokenizeNumeric(list), static_cast<int>(row.expected.size()));
            Pieces expected;
            for (const std::string& piece : row.expected)
                expected.push_back(Bytes(Ascii(piece, encoding)));
            EXPECT_EQ(Items(list), expected) << row.text;
        }
    }
}

TEST(TokenizeNumeric, StopsAtTheMaximum)
{
    const UtCString text("1.2.3");
    UtCStringList list;
    EXPECT_EQ(text.TokenizeNumeric(list, 2), 2);
    EXPECT_EQ(Items(list), (Pieces{"1", "2"}));
    EXPECT_EQ(text.TokenizeNumeric(list, 0), 0);
    EXPECT_EQ(list.GetCount(), 0);
    EXPECT_EQ(text.TokenizeNumeric(list, 3), 3);
    EXPECT_EQ(text.TokenizeNumeric(list, LONG_MAX), 3);
    EXPECT_EQ(text.TokenizeNumeric(list, LONG_MIN), 3);
}

TEST(TokenizeNumeric, TakesAsciiDigitsOnly)
{
    UtCStringList list;
    EXPECT_EQ(Text("1\xB2\xB3").TokenizeNumeric(list), 1);
    EXPECT_EQ(Text("\xD9\xA1", utf8).TokenizeNumeric(list), 0);
}

TEST(UtCStringList, IsEmptyOrHoldsWhatItWasMadeOf)
{
    EXPECT_EQ(UtCStringList().GetCount(), 0);
    EXPECT_EQ(Items(UtCStringList(Text("a"))), Pieces{"a"});
    EXPECT_EQ(Items(UtCStringList{"a", UtCString(2), "c"}), (Pieces{"a", "2", "c"}));
}

TEST(UtCStringList, KeepsTheEncodingOfEachText)
{
    const UtCStringList list{Text("a", utf8), Text("b\0"sv, utf16le)};
    EXPECT_EQ(list.item(0).GetEncodingType(), utf8);
    EXPECT_EQ(list.item(1).GetEncodingType(), utf16le);
}

TEST(UtCStringList, AddsTextsAndLists)
{
    UtCStringList list;
    EXPECT_TRUE(list.Add("a"));
    EXPECT_TRUE(list.AddList(UtCStringList{"b", "c"}));
    EXPECT_TRUE(list.AddList(list));
    EXPECT_TRUE(list.Add(list.item(0)));
    EXPECT_EQ(Items(list), (Pieces{"a", "b", "c", "a", "b", "c", "a"}));
}

TEST(UtCStringList, CopiesAndMoves)
{
    UtCStringList list{"a", "b"};
    UtCStringList copy(list);
    copy.item(0) = "x";
    EXPECT_EQ(Items(list), (Pieces{"a", "b"}));
    list = copy;
    EXPECT_EQ(Items(list), (Pieces{"x", "b"}));
    UtCStringList& same = list;
    list = same;
    EXPECT_EQ(Items(list), (Pieces{"x", "b"}));
    const UtCStringList moved(std::move(list));
    EXPECT_EQ(Items(moved), (Pieces{"x", "b"}));
}

TEST(UtCStringList, RemovesByPosition)
{
    UtCStringList list{"a", "b", "c"};
    list.Remove(1);
    EXPECT_EQ(Items(list), (Pieces{"a", "c"}));
    list.Remove(2);
    list.Remove(-1);
    list.Remove(INT_MAX);
    EXPECT_EQ(Items(list), (Pieces{"a", "c"}));
    list.Remove(0);
    list.Remove(0);
    EXPECT_EQ(list.GetCount(), 0);
    list.Remove(0);
}

TEST(UtCStringList, GivesAnEmptySpareTextOutOfRange)
{
    UtCStringList list{"a"};
    list.item(1) = Text("written", utf8);
    ExpectText(list.item(1), "", ansi);
    ExpectText(list.item(-1), "", ansi);
    ExpectText(std::as_const(list).item(INT_MAX), "", ansi);
    EXPECT_EQ(Items(list), Pieces{"a"});
}

TEST(UtCStringList, CanBeUsedAgainAfterClear)
{
    UtCStringList list{"a", "b"};
    list.Clear();
    EXPECT_EQ(list.GetCount(), 0);
    list.Add("c");
    EXPECT_EQ(Items(list), Pieces{"c"});
}

TEST(Concatenate, JoinsWithTheSeparator)
{
    UtCString out("before");
    UtCStringList{"a", "", "c"}.Concatenate(", ", out);
    ExpectText(out, "a, , c", ansi);
    UtCStringList().Concatenate(", ", out);
    ExpectText(out, "", ansi);
    UtCStringList{"a"}.Concatenate(", ", out);
    ExpectText(out, "a", ansi);
    UtCStringList{"a", "b"}.Concatenate("", out);
    ExpectText(out, "ab", ansi);
}

TEST(Concatenate, WritesInTheEncodingOfItsTarget)
{
    UtCString out(utf8);
    UtCStringList{Text("\xFC"), Text("\0\xE4"sv, utf16be)}.Concatenate(Text("\xDF"), out);
    ExpectText(out, "\xC3\xBC\xC3\x9F\xC3\xA4", utf8);
}

TEST(Concatenate, WritesIntoAnItemOrTheSeparator)
{
    UtCStringList list{"a", "b"};
    list.Concatenate("-", list.item(0));
    EXPECT_EQ(Items(list), (Pieces{"a-b", "b"}));
    UtCString separator("+");
    list.Concatenate(separator, separator);
    ExpectText(separator, "a-b+b", ansi);
}
