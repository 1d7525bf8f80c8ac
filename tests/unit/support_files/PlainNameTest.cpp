#include "files/PlainName.h"

#include <gtest/gtest.h>

#include <string>

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

constexpr platform::PathRules rulesOfWindows{'\\', true, true};
constexpr platform::PathRules rulesOfPosix{'/', false, false};

TEST(IsPlainNameByTheRulesOfWindows, RefusesDevicesWhateverTheirCaseAndEnding)
{
    for (const char* name : {"nul", "NUL", "Con", "aux.txt", "prn.143005_tmp", "nul .x", "nul.", "com1", "COM9.x.y",
                             "lpt1", "lpt\xB2", "conin$", "CONOUT$"}) {
        EXPECT_FALSE(files::IsPlainName(name, rulesOfWindows)) << name;
        EXPECT_EQ(files::IsPlainName(name, rulesOfPosix), !std::string_view(name).ends_with(".")) << name;
    }
    EXPECT_FALSE(files::IsPlainName(UtCString(std::string_view("n\0u\0l\0", 6), UT_ENCODING_UTF16_LE), rulesOfWindows));
}

TEST(IsPlainNameByTheRulesOfWindows, TakesNamesThatOnlyResembleDevices)
{
    for (const char* name : {"null", "nul_", "nul_.x", "xnul", "x.nul", "com", "com0", "com10", "coma", "lpt",
                             "console", "auxiliary.txt", "conin", "nul x", " nul"})
        EXPECT_TRUE(files::IsPlainName(name, rulesOfWindows)) << name;
}

TEST(IsPlainNameByTheRulesOfWindows, RefusesCharactersThatNamesLackThere)
{
    for (const char character : std::string("?*\"<>|\x01\t\n\x1F")) {
        const std::string name = std::string("a") + character + "b";
        EXPECT_FALSE(files::IsPlainName(UtCString(name, UT_ENCODING_DEFAULT), rulesOfWindows)) << name;
        EXPECT_TRUE(files::IsPlainName(UtCString(name, UT_ENCODING_DEFAULT), rulesOfPosix)) << name;
    }
    EXPECT_TRUE(files::IsPlainName("a b'c#%&$@!^~`{}[]()=+,;-_\x7F", rulesOfWindows));
}

} // namespace
