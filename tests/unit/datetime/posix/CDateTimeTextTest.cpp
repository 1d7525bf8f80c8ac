#include "unit/TestLocale.h"
#include "unit/datetime/DateTestSupport.h"

#include <gtest/gtest.h>

namespace {

using namespace std::string_view_literals;

class PublicDateToStr : public CDateTime
{
public:
    using CDateTime::CDateTime;
    using CDateTime::DateToStr;
};

TEST(GetDateInTheLocaleOfThePosixEnvironment, FollowsTheLocaleForZeroAndUnknownSelectors)
{
    const Environment locale("LC_ALL", "C");
    const CDateTime date(2024, 3, 5, 14, 7, 9);
    for (const unsigned int selector : {0u, 13u, 0x80000000u, 0xFFFFFFFFu})
        EXPECT_EQ(Text(date.GetDate(selector)), "03/05/24") << selector;
}

constexpr TestLocale::Dates german = {"%d. %B %Y", "M<U00E4>rz", "M<U00E4>r", "Dienstag", "Di", "", ""};

TEST(GetDateInTheLocaleOfThePosixEnvironment, WritesAndParseDateReadsTheUsersLocale)
{
    const TestLocale locale(german);
    const UtCString text = CDateTime(2024, 3, 5, 14, 7, 9).GetDate(0);
    EXPECT_EQ(Text(text), "05. M\xE4rz 2024");
    EXPECT_EQ(text.GetEncodingType(), UT_ENCODING_DEFAULT);
    EXPECT_EQ(Shown(CDateTime::ParseDate(text)), "2024-03-05 00:00:00 (0)");
    EXPECT_EQ(Shown(CDateTime::ParseDate(UtCString(text, UT_ENCODING_UTF16_BE))), "2024-03-05 00:00:00 (0)");
    EXPECT_EQ(Shown(CDateTime::ParseDate(Ansi("4.5.2024"))), "2024-05-04 00:00:00 (0)");
    EXPECT_EQ(Text(CDateTime(2024, 3, 5, 14, 7, 9).GetDate(1)), "05.03.2024") << "the other forms do not follow it";
}

TEST(DateToStrInTheLocaleOfThePosixEnvironment, IsTheLocalesShortDate)
{
    const Environment locale("LC_ALL", "C");
    EXPECT_EQ(Text(PublicDateToStr(1600, 12, 31, 23, 59, 59).DateToStr()), "12/31/00");
    EXPECT_EQ(Text(PublicDateToStr().DateToStr()), "");
    EXPECT_EQ(Text(PublicDateToStr(1599, 12, 31, 0, 0, 0).DateToStr()), "");
}

TEST(ParseDateInTheLocaleOfThePosixEnvironment, ReadsFormsThatWindowsRefusesOrCuts)
{
    const Environment locale("LC_ALL", "C");
    const ParsedText rows[] = {
        {"2024-03-05T14:07:09"sv, 0, "2024-03-05 14:07:09 (0)"},
        {"03/05/2024"sv, 0, "2024-03-05 00:00:00 (0)"},
        {"March 5, 2024 \t\r\n"sv, 0, "2024-03-05 00:00:00 (0)"},
        {"14:07"sv, 2, shownNull},
        {"2024-03-05"sv, 1, shownNull},
    };
    for (const ParsedText& row : rows)
        ExpectParsed(row);
}

} // namespace
