#include "platform/posix/Terminal.h"

#include "unit/Environment.h"

#include <gtest/gtest.h>

namespace {

using namespace std::string_view_literals;

TEST(EncodeForTheTerminalOfPosix, WritesTheTerminalsEncoding)
{
    const struct
    {
        const char* name;
        std::string_view utf8;
        const char* codeset;
        std::string_view encoded;
    } rows[] = {
        {"ASCII text", "Kein Fehler!\n\t1"sv, "ANSI_X3.4-1968", "Kein Fehler!\n\t1"sv},
        {"umlaut in UTF-8", "M\xC3\xBCller"sv, "UTF-8", "M\xC3\xBCller"sv},
        {"umlaut in Latin-1", "M\xC3\xBCller"sv, "ISO-8859-1", "M\xFCller"sv},
        {"umlaut in ASCII", "M\xC3\xBCller"sv, "ANSI_X3.4-1968", "M?ller"sv},
        {"euro in Latin-9", "5 \xE2\x82\xAC"sv, "ISO-8859-15", "5 \xA4"sv},
        {"euro in Latin-1", "5 \xE2\x82\xAC."sv, "ISO-8859-1", "5 ?."sv},
        {"four bytes in Latin-1", "\xF0\x9F\x98\x80!"sv, "ISO-8859-1", "?!"sv},
        {"unknown codeset", "M\xC3\xBCller"sv, "no-such-codeset", "M?ller"sv},
        {"empty codeset", "M\xC3\xBCller"sv, "ASCII", "M?ller"sv},
        {"stray byte", "a\xFCz"sv, "UTF-8", "a?z"sv},
        {"cut sequence", "a\xE2\x82"sv, "UTF-8", "a?"sv},
        {"cut sequence inside", "a\xE2\x82z"sv, "UTF-8", "a?z"sv},
        {"stray continuation bytes", "\x80\x80z"sv, "UTF-8", "?z"sv},
        {"zero byte", "a\0b"sv, "ISO-8859-1", "a\0b"sv},
        {"empty", ""sv, "UTF-8", ""sv},
    };
    for (const auto& row : rows)
        EXPECT_EQ(platform::EncodeForTerminal(row.utf8, row.codeset), row.encoded) << row.name;
}

TEST(EncodeForTheTerminalOfPosix, KeepsLongTexts)
{
    std::string utf8;
    std::string expected;
    for (int count = 0; count < 10000; ++count) {
        utf8 += "\xC3\xBCx";
        expected += "\xFCx";
    }
    EXPECT_EQ(platform::EncodeForTerminal(utf8, "ISO-8859-1"), expected);
}

TEST(TerminalCodesetOfPosix, IsThatOfTheUsersLocale)
{
    const struct
    {
        const char *all, *ctype, *language, *codeset;
    } rows[] = {
        {"C", nullptr, nullptr, "ANSI_X3.4-1968"},
        {"C.UTF-8", nullptr, nullptr, "UTF-8"},
        {nullptr, "C.UTF-8", "C", "UTF-8"},
        {nullptr, nullptr, "C.UTF-8", "UTF-8"},
        {"xx_XX.ISO-8859-15", nullptr, nullptr, "ISO-8859-15"},
        {"xx_XX.ISO-8859-15@euro", nullptr, nullptr, "ISO-8859-15"},
        {"", "xx_XX.KOI8-R", nullptr, "KOI8-R"},
        {nullptr, "", "xx_XX.KOI8-R", "KOI8-R"},
        {"xx_XX", nullptr, nullptr, "ASCII"},
        {nullptr, nullptr, nullptr, "ANSI_X3.4-1968"},
    };
    for (const auto& row : rows) {
        const Environment all("LC_ALL", row.all);
        const Environment ctype("LC_CTYPE", row.ctype);
        const Environment language("LANG", row.language);
        EXPECT_EQ(platform::TerminalCodeset(), row.codeset);
    }
}

TEST(WriteToTheTerminalOfPosix, WritesOneLineToStandardError)
{
    const Environment locale("LC_ALL", "C.UTF-8");
    testing::internal::CaptureStderr();
    platform::WriteToTerminal("M\xC3\xBCller");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "M\xC3\xBCller\n");
}

TEST(WriteToTheTerminalOfPosix, UsesTheTerminalsEncoding)
{
    const Environment locale("LC_ALL", "C");
    testing::internal::CaptureStderr();
    platform::WriteToTerminal("M\xC3\xBCller");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "M?ller\n");
}

} // namespace
