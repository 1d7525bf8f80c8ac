#include "sql/KeyValue.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace {

using namespace std::string_literals;

std::string Bytes(const UtCString& text)
{
    return std::string(text.View());
}

std::string Escaped(const std::string& value, const char* op)
{
    return Bytes(sql::EscapedKeyValue(value, UT_ENCODING_UTF8, op));
}

// --- Numbers

struct DoubleCase
{
    const char* name;
    double value;
    const char* text;
};

class DoubleKeyValue : public testing::TestWithParam<DoubleCase>
{
};

TEST_P(DoubleKeyValue, HasFourDecimalsAndNoTrailingZeros)
{
    EXPECT_EQ(Bytes(sql::KeyValue(GetParam().value)), GetParam().text);
}

constexpr double infinity = std::numeric_limits<double>::infinity();

INSTANTIATE_TEST_SUITE_P(
    Values, DoubleKeyValue,
    testing::Values(DoubleCase{"OneDecimal", 2.5, "2.5"}, DoubleCase{"Whole", 3.0, "3"}, DoubleCase{"One", 1.0, "1"},
                    DoubleCase{"Rounded", 0.123456, "0.1235"}, DoubleCase{"RoundedUp", 1.23456, "1.2346"},
                    DoubleCase{"Negative", -0.5, "-0.5"}, DoubleCase{"Zero", 0.0, "0"},
                    DoubleCase{"NegativeZero", -0.0, "-0"}, DoubleCase{"RoundedToNothing", -0.00001, "-0"},
                    DoubleCase{"ZerosBeforeThePoint", 1200.0, "1200"}, DoubleCase{"ZeroInside", 10.05, "10.05"},
                    DoubleCase{"FourDecimals", 0.0001, "0.0001"}, DoubleCase{"TieOfABinaryFraction", 0.03125, "0.0312"},
                    DoubleCase{"CarryIntoTheWholePart", 9.99996, "10"},
                    DoubleCase{"Huge", 1e22, "10000000000000000000000"}, DoubleCase{"Infinity", infinity, "inf"},
                    DoubleCase{"NegativeInfinity", -infinity, "-inf"}, DoubleCase{"NotANumber", std::nan(""), "nan"},
                    DoubleCase{"NegativeNotANumber", -std::nan(""), "nan"}),
    [](const auto& test) { return test.param.name; });

TEST(DoubleKeyValue, WritesTheLargestNumbersWithAllDigits)
{
    const std::string largest = Bytes(sql::KeyValue(-std::numeric_limits<double>::max()));
    EXPECT_EQ(largest.size(), 310u);
    EXPECT_EQ(largest.substr(0, 18), "-17976931348623157");
    EXPECT_EQ(largest.substr(306), "8368");
}

TEST(BoolKeyValue, IsAKeyword)
{
    EXPECT_EQ(Bytes(sql::KeyValue(true)), "TRUE");
    EXPECT_EQ(Bytes(sql::KeyValue(false)), "FALSE");
}

// --- Dates and GUIDs

TEST(DateKeyValue, WritesWhatTheValueHas)
{
    CDateTime time(1899, 12, 30, 8, 9, 10);
    EXPECT_EQ(Bytes(sql::KeyValue(CDateTime(2023, 5, 7, 8, 9, 10))), "2023-05-07 08:09:10");
    EXPECT_EQ(Bytes(sql::KeyValue(time.GetTimeOnly())), "08:09:10");
    EXPECT_EQ(Bytes(sql::KeyValue(CDateTime(2023, 5, 7, 0, 0, 0))), "2023-05-07");
}

TEST(DateKeyValue, IsNullForWhatIsNoDate)
{
    CDateTime null;
    null.SetNull();
    EXPECT_EQ(Bytes(sql::KeyValue(CDateTime())), "null");
    EXPECT_EQ(Bytes(sql::KeyValue(null)), "null");
    EXPECT_EQ(Bytes(sql::KeyValue(CDateTime(2023, 2, 29, 0, 0, 0))), "null");
    EXPECT_EQ(Bytes(sql::KeyValue(CDateTime(1599, 12, 31, 0, 0, 0))), "null");
    EXPECT_EQ(Bytes(sql::KeyValue(CDateTime(1600, 1, 1, 0, 0, 0))), "1600-01-01");
    EXPECT_EQ(Bytes(sql::KeyValue(CDateTime(2999, 12, 31, 23, 59, 59))), "2999-12-31 23:59:59");
    EXPECT_EQ(Bytes(sql::KeyValue(CDateTime(3000, 1, 1, 0, 0, 0))), "null");
}

TEST(GuidKeyValue, IsLowerCaseBetweenBraces)
{
    const _GUID guid = {0x6B29FC40, 0xCA47, 0x1067, {0xB3, 0x1D, 0x00, 0xDD, 0x01, 0x06, 0x62, 0xDA}};
    EXPECT_EQ(Bytes(sql::KeyValue(guid)), "{6b29fc40-ca47-1067-b31d-00dd010662da}");
    EXPECT_EQ(Bytes(sql::KeyValue(_GUID{})), "null");
    EXPECT_EQ(Bytes(sql::KeyValue(_GUID{0, 0, 0, {0, 0, 0, 0, 0, 0, 0, 1}})), "{00000000-0000-0000-0000-000000000001}");
}

// --- Escaping

struct EscapeCase
{
    const char* name;
    const char* op;
    std::string value;
    std::string text;
};

class EscapedKeyValue : public testing::TestWithParam<EscapeCase>
{
};

TEST_P(EscapedKeyValue, PutsBackslashesInFront)
{
    EXPECT_EQ(Escaped(GetParam().value, GetParam().op), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Values, EscapedKeyValue,
    testing::Values(
        EscapeCase{"Empty", "=", "", ""}, EscapeCase{"Plain", "=", "Meyer", "Meyer"},
        EscapeCase{"Apostrophe", "=", "O'Neil", "O\\'Neil"}, EscapeCase{"Quote", "=", "a\"b", "a\\\"b"},
        EscapeCase{"Backslash", "=", "a\\b", "a\\\\b"}, EscapeCase{"LeadingBackslash", "=", "\\a\\", "\\\\a\\\\"},
        EscapeCase{"BackslashBeforeApostrophe", "=", "\\'", "\\\\\\'"},
        EscapeCase{"All", "=", "\"'\\_%", "\\\"\\'\\\\_%"}, EscapeCase{"InApostrophes", "=", "'abc'", "\\'abc\\'"},
        EscapeCase{"WildcardsWithoutLike", "=", "100_%", "100_%"}, EscapeCase{"Zero", "=", "a\0'b"s, "a\0\\'b"s},
        EscapeCase{"LineBreaksStay", "=", "a\r\n\x1A", "a\r\n\x1A"}, EscapeCase{"Like", "LIKE", "100_%", "100\\_%"},
        EscapeCase{"LikeInLowerCase", "like", "a_", "a\\_"}, EscapeCase{"LikeWithMore", "Like binary", "_", "\\_"},
        EscapeCase{"NotLike", "NOT LIKE", "_", "_"}, EscapeCase{"BlankBeforeLike", " LIKE", "_", "_"},
        EscapeCase{"HalfOfLike", "LIK", "_", "_"}, EscapeCase{"EmptyOperator", "", "_'", "_\\'"},
        EscapeCase{"LikeBackslashInside", "LIKE", "a\\b", "a\\\\b"}, EscapeCase{"LikeQuotes", "LIKE", "'\"", "\\'\\\""},
        EscapeCase{"LikeEmpty", "LIKE", "", ""}, EscapeCase{"Umlaut", "=", "\xC3\xBC'", "\xC3\xBC\\'"},
        EscapeCase{"Emoji", "=", "\xF0\x9F\x98\x80\\", "\xF0\x9F\x98\x80\\\\"},
        EscapeCase{"LeadByteBeforeApostrophe", "=", "\xC3'", "\xC3\\'"},
        EscapeCase{"FullWidthApostropheStays", "=", "\xEF\xBC\x87", "\xEF\xBC\x87"}),
    [](const auto& test) { return test.param.name; });

TEST(EscapedKeyValue, Kept_K81_MakesFourBackslashesOfOneWhereALikeValueBeginsWithOne)
{
    EXPECT_EQ(Escaped("\\", "LIKE"), "\\\\\\\\");
    EXPECT_EQ(Escaped("\\a\\'b_", "LIKE"), "\\\\\\\\a\\\\\\\\\\'b\\_");
    EXPECT_EQ(Escaped("a\\", "LIKE"), "a\\\\");
    EXPECT_EQ(Escaped("\\a\\_", "NOT LIKE"), "\\\\a\\\\_");
}

TEST(EscapedKeyValue, EscapesCharactersOfUtf16)
{
    const UtCString value(UtCString("\xE2\x9C\xA7'\xE5\xB0\xA0\\_", UT_ENCODING_UTF8), UT_ENCODING_UTF16_LE);
    const UtCString expected("\xE2\x9C\xA7\\'\xE5\xB0\xA0\\\\\\_", UT_ENCODING_UTF8);
    EXPECT_EQ(sql::EscapedKeyValue(value.View(), value.GetEncodingType(), "LIKE"), expected);
    const UtCString bigEndian(value, UT_ENCODING_UTF16_BE);
    EXPECT_EQ(sql::EscapedKeyValue(bigEndian.View(), bigEndian.GetEncodingType(), "LIKE"), expected);
}

TEST(EscapedKeyValue, Kept_K81_CountsTheBackslashesOfUtf16Alike)
{
    const UtCString value("\\a\\", UT_ENCODING_UTF16_BE, UT_ENCODING_DEFAULT);
    EXPECT_EQ(sql::EscapedKeyValue(value.View(), value.GetEncodingType(), "LIKE"), "\\\\\\\\a\\\\\\\\");
    EXPECT_EQ(sql::EscapedKeyValue(value.View(), value.GetEncodingType(), "="), "\\\\a\\\\");
}

TEST(EscapedKeyValue, ReadsNothingBehindHalfAUnit)
{
    const std::vector<char> half = {'\\'}; // a block of memory that ends there
    EXPECT_EQ(Bytes(sql::EscapedKeyValue({half.data(), half.size()}, UT_ENCODING_UTF16_LE, "LIKE")), "\\");
}

TEST(EscapedKeyValue, LeavesBytesOfUtf16CharactersAlone)
{
    // U+2700, U+0027 shifted by a byte: no unit of these is an apostrophe.
    const std::string bytes = "\x00\x27\x27\x27"s;
    EXPECT_EQ(Bytes(sql::EscapedKeyValue(bytes, UT_ENCODING_UTF16_LE, "=")), bytes);
    EXPECT_EQ(Bytes(sql::EscapedKeyValue("\x27\x00\x27"s, UT_ENCODING_UTF16_LE, "=")), "\\\0'\0'"s);
}

TEST(EscapedKeyValue, KeepsTheEncoding)
{
    for (eUtEncodingType encoding : {UT_ENCODING_DEFAULT, UT_ENCODING_UTF16_BE, UT_ENCODING_UTF32}) {
        EXPECT_EQ(sql::EscapedKeyValue("'x", encoding, "=").GetEncodingType(), encoding);
        EXPECT_EQ(sql::EscapedKeyValue("", encoding, "=").GetEncodingType(), encoding);
    }
}

TEST(EscapedKeyValue, EscapesALongText)
{
    std::string value(100000, '\'');
    std::string expected;
    for (size_t count = value.size(); count > 0; --count)
        expected += "\\'";
    EXPECT_EQ(Escaped(value, "="), expected);
}

// --- Quotes

TEST(WithoutQuotes, TakesOnePairOff)
{
    EXPECT_EQ(sql::WithoutQuotes("'2023-05-07'", UT_ENCODING_DEFAULT), "2023-05-07");
    EXPECT_EQ(sql::WithoutQuotes("\"a\"", UT_ENCODING_DEFAULT), "a");
    EXPECT_EQ(sql::WithoutQuotes("''a''", UT_ENCODING_DEFAULT), "'a'");
    EXPECT_EQ(sql::WithoutQuotes("''", UT_ENCODING_DEFAULT), "");
    EXPECT_EQ(sql::WithoutQuotes("'\0a\0'\0"s, UT_ENCODING_UTF16_LE), "a\0"s);
}

TEST(WithoutQuotes, LeavesEverythingElseWhole)
{
    for (const char* text : {"", "'", "\"", "a", "'a", "a'", "'a\"", "\"a'", "aba", "\\'a\\'"})
        EXPECT_EQ(sql::WithoutQuotes(text, UT_ENCODING_UTF8), text);
    EXPECT_EQ(sql::WithoutQuotes("''", UT_ENCODING_UTF16_LE), "''"); // U+2727
    EXPECT_EQ(sql::WithoutQuotes("'\0'\0'"s, UT_ENCODING_UTF16_LE), "'\0'\0'"s);
    EXPECT_EQ(sql::WithoutQuotes("'\0"s, UT_ENCODING_UTF16_LE), "'\0"s);
}

} // namespace
