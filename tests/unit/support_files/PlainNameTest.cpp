#include "files/PlainName.h"

#include <gtest/gtest.h>

namespace {

TEST(IsPlainName, TakesWhatNamesOneFileOrFolder)
{
    for (const char* name : {"a", "kalk", "my-shop", "my shop", ".hidden", "a.b", "...a", " a", "o'rder", "`a`", "100%",
                             "K\xFC"
                             "che"})
        EXPECT_TRUE(files::IsPlainName(name)) << name;
    EXPECT_TRUE(files::IsPlainName(UtCString(std::string_view("k\0", 2), UT_ENCODING_UTF16_LE)));
}

TEST(IsPlainName, RefusesWhatLeadsElsewhere)
{
    for (const char* name : {"", ".", "..", "...", "a/b", "/", "/etc", "..\\a", "\\", "a\\", "C:", "a:b", ":"})
        EXPECT_FALSE(files::IsPlainName(name)) << name;
    EXPECT_FALSE(files::IsPlainName(UtCString(std::string_view("/\0", 2), UT_ENCODING_UTF16_LE)));
    EXPECT_FALSE(files::IsPlainName(UtCString(std::string_view(".\0.\0", 4), UT_ENCODING_UTF16_LE)));
}

TEST(IsPlainName, RefusesWhatSomeSystemsReadAsAnotherName)
{
    for (const char* name : {"kalk.", "kalk ", " ", ". ", ".. .", "kalk. "})
        EXPECT_FALSE(files::IsPlainName(name)) << name;
    EXPECT_FALSE(files::IsPlainName(UtCString(std::string_view("kalk\0b", 6), UT_ENCODING_DEFAULT)));
}

} // namespace
