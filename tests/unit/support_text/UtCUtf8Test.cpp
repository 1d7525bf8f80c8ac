#include "text/UtCUtf8.h"

#include <gtest/gtest.h>

TEST(SkipBOM, SkipsOneByteOrderMark)
{
    EXPECT_STREQ(UtCUtf8::SkipBOM("\xEF\xBB\xBFtext"), "text");
    EXPECT_STREQ(UtCUtf8::SkipBOM("\xEF\xBB\xBF"), "");
    EXPECT_STREQ(UtCUtf8::SkipBOM("\xEF\xBB\xBF\xEF\xBB\xBFtext"), "\xEF\xBB\xBFtext");
}

TEST(SkipBOM, GivesTheTextItselfWithoutAMark)
{
    for (const char* text : {"text", "", "\xEF", "\xEF\xBB", "\xEF\xBBtext", "\xFF\xFEt"})
        EXPECT_EQ(UtCUtf8::SkipBOM(text), text);
}

TEST(SkipBOM, GivesNullForNull)
{
    EXPECT_EQ(UtCUtf8::SkipBOM(nullptr), nullptr);
}
