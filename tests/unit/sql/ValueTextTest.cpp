#include "sql/ValueText.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace {

TEST(IsQuotedType, HoldsForTextBlobMemoAndDateTime)
{
    for (const MYTYPES type : {MYTYPE_TEXT, MYTYPE_BLOB, MYTYPE_MEMO, MYTYPE_DATETIME})
        EXPECT_TRUE(sql::IsQuotedType(type)) << type;
    for (const MYTYPES type : {MYTYPE_UNKNOWN, MYTYPE_SHORT, MYTYPE_LONG, MYTYPE_DOUBLE, MYTYPE_INT64, MYTYPE_FLOAT,
                               static_cast<MYTYPES>(13)})
        EXPECT_FALSE(sql::IsQuotedType(type)) << type;
}

TEST(IsNullWord, IgnoresLetterCaseAndNothingElse)
{
    for (const char* word : {"null", "NULL", "nUlL"}) {
        EXPECT_TRUE(sql::IsNullWord(word));
        EXPECT_TRUE(sql::IsNullWord(UtCString(UtCString(word), UT_ENCODING_UTF16_BE)));
    }
    for (const char* word : {"", "nul", "null ", "nulll", "'null'"})
        EXPECT_FALSE(sql::IsNullWord(word)) << word;
}

TEST(NeedsEscape, FindsExactlyTheSpecialCharacters)
{
    for (int character = 0; character < 256; ++character) {
        const char text[] = {'a', static_cast<char>(character)};
        const bool isSpecial = std::string("\r\n\t'\\\0", 6).find(text[1]) != std::string::npos;
        const UtCString narrow(std::string_view(text, 2), UT_ENCODING_DEFAULT);
        EXPECT_EQ(sql::NeedsEscape(narrow), isSpecial) << character;
        EXPECT_EQ(sql::NeedsEscape(UtCString(narrow, UT_ENCODING_UTF16_LE)), isSpecial) << character;
        EXPECT_EQ(sql::NeedsEscape(UtCString(narrow, UT_ENCODING_UTF8)), isSpecial) << character;
    }
    EXPECT_FALSE(sql::NeedsEscape(UtCString()));
}

TEST(Quoted, KeepsTheEncodingUnlessItIsUtf16)
{
    EXPECT_EQ(sql::Quoted("x\xFC").View(), "'x\xFC'");
    EXPECT_EQ(sql::Quoted(UtCString()).View(), "''");
    EXPECT_EQ(sql::Quoted(UtCString(UtCString("\xFC"), UT_ENCODING_UTF16_LE)).View(), "'\xC3\xBC'");
}

TEST(Quoted, EndsInAnApostropheAlsoBehindHalfACharacter)
{
    for (const eUtEncodingType encoding : {UT_ENCODING_UTF16_LE, UT_ENCODING_UTF16_BE}) {
        const UtCString half(std::string_view("\xC3", 1), encoding);
        EXPECT_EQ(sql::Quoted(half).View(), "'\xEF\xBF\xBD'");
    }
    EXPECT_EQ(sql::Quoted(UtCString("\xC3", UT_ENCODING_UTF8)).View(), "'\xC3'");
}

TEST(DoubleText, IsTheShortestThatReadsBack)
{
    EXPECT_EQ(sql::DoubleText(0.1).View(), "0.1");
    EXPECT_EQ(sql::DoubleText(-2.5e-7).View(), "-2.5e-07");
    EXPECT_EQ(sql::DoubleText(123456789012345.0).View(), "123456789012345");
    EXPECT_EQ(sql::DoubleText(std::numeric_limits<double>::quiet_NaN()).View(), "nan out of range");
    EXPECT_EQ(sql::DoubleText(-std::numeric_limits<double>::infinity()).View(), "-inf out of range");
}

TEST(FloatText, HasEightDecimals)
{
    EXPECT_EQ(sql::FloatText(0.1F, UT_ENCODING_UTF8).View(), "0.10000000");
    EXPECT_EQ(sql::FloatText(0.1F, UT_ENCODING_UTF8).GetEncodingType(), UT_ENCODING_UTF8);
    EXPECT_EQ(sql::FloatText(-16777216.0F, UT_ENCODING_DEFAULT).View(), "-16777216.00000000");
    EXPECT_EQ(sql::FloatText(std::numeric_limits<float>::infinity(), UT_ENCODING_UTF8).View(), "inf out of range");
}

TEST(StampUser, EndsAtTheFirstUnderscoreElseAtTheFirstColon)
{
    EXPECT_EQ(sql::StampUser("vela_root").View(), "vela");
    EXPECT_EQ(sql::StampUser("a_b_c").View(), "a");
    EXPECT_EQ(sql::StampUser("a:b:c").View(), "a");
    EXPECT_EQ(sql::StampUser("a:b_c").View(), "a:b");
    EXPECT_EQ(sql::StampUser("meier").View(), "meier");
    EXPECT_EQ(sql::StampUser("_").View(), "");
    EXPECT_EQ(sql::StampUser(UtCString()).View(), "");
}

} // namespace
