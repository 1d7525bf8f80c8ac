#include "sql/StatementText.h"

#include <gtest/gtest.h>

#include <string_view>

namespace {

using namespace std::string_view_literals;

TEST(TrimStatement, CutsBlanksAndLineBreaksOffTheEnd)
{
    EXPECT_EQ(sql::TrimStatement("DO 1 \r\n \n\r ", UT_ENCODING_DEFAULT), "DO 1");
    EXPECT_EQ(sql::TrimStatement("DO 1\r\n", UT_ENCODING_UTF8), "DO 1");
}

TEST(TrimStatement, LeavesTheStartAndOtherCharactersAlone)
{
    EXPECT_EQ(sql::TrimStatement(" \r\nDO 1;\t", UT_ENCODING_DEFAULT), " \r\nDO 1;\t");
    EXPECT_EQ(sql::TrimStatement("DO 1\0"sv, UT_ENCODING_DEFAULT), "DO 1\0"sv);
    EXPECT_EQ(sql::TrimStatement("DO 1\xA0", UT_ENCODING_DEFAULT), "DO 1\xA0");
}

TEST(TrimStatement, LeavesNothingOfBlanks)
{
    EXPECT_EQ(sql::TrimStatement("", UT_ENCODING_DEFAULT), "");
    EXPECT_EQ(sql::TrimStatement(" \r\n", UT_ENCODING_DEFAULT), "");
    EXPECT_EQ(sql::TrimStatement(" \0\r\0\n\0"sv, UT_ENCODING_UTF16_LE), "");
    EXPECT_EQ(sql::TrimStatement("\0 \0\r\0\n"sv, UT_ENCODING_UTF16_BE), "");
}

TEST(TrimStatement, CutsWholeUnitsOfUtf16)
{
    EXPECT_EQ(sql::TrimStatement("D\0O\0 \0\n\0"sv, UT_ENCODING_UTF16_LE), "D\0O\0"sv);
    EXPECT_EQ(sql::TrimStatement("\0D\0O\0 \0\n"sv, UT_ENCODING_UTF16_BE), "\0D\0O"sv);
}

TEST(TrimStatement, TakesNoUnitForABlankThatOnlyHasABlankByte)
{
    EXPECT_EQ(sql::TrimStatement(" \x20"sv, UT_ENCODING_UTF16_LE), " \x20"sv); // U+2020
    EXPECT_EQ(sql::TrimStatement("\x20 "sv, UT_ENCODING_UTF16_BE), "\x20 "sv);
    EXPECT_EQ(sql::TrimStatement("\0 "sv, UT_ENCODING_UTF16_LE), "\0 "sv); // U+2000
}

TEST(TrimStatement, DropsAHalfUnitAtTheEnd)
{
    EXPECT_EQ(sql::TrimStatement("D\0 \0x"sv, UT_ENCODING_UTF16_LE), "D\0"sv);
    EXPECT_EQ(sql::TrimStatement("x", UT_ENCODING_UTF16_BE), "");
}

TEST(IsBlank, IsTrueForBlanksOnly)
{
    EXPECT_TRUE(sql::IsBlank("", UT_ENCODING_DEFAULT));
    EXPECT_TRUE(sql::IsBlank("   ", UT_ENCODING_UTF8));
    EXPECT_TRUE(sql::IsBlank(" \0 \0"sv, UT_ENCODING_UTF16_LE));
    EXPECT_TRUE(sql::IsBlank("\0 \0 "sv, UT_ENCODING_UTF16_BE));
    EXPECT_FALSE(sql::IsBlank(" x ", UT_ENCODING_DEFAULT));
    EXPECT_FALSE(sql::IsBlank("\t", UT_ENCODING_DEFAULT));
    EXPECT_FALSE(sql::IsBlank("\xA0", UT_ENCODING_DEFAULT)); // a no-break space
    EXPECT_FALSE(sql::IsBlank("\0"sv, UT_ENCODING_DEFAULT));
    EXPECT_FALSE(sql::IsBlank("  "sv, UT_ENCODING_UTF16_LE)); // U+2020
}

} // namespace
