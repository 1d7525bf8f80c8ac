#include "platform/LocaleDate.h"

#include "platform/LocalTime.h"
#include "unit/Environment.h"
#include "unit/TestLocale.h"

#include <gtest/gtest.h>

// The user's locale is LC_TIME of the environment, and the parser the library's own.
namespace {

using platform::CalendarFields;

constexpr TestLocale::Dates german = {"%d.%m.%Y", "M<U00E4>rz", "M<U00E4>r", "Dienstag", "Di", "", ""};
constexpr TestLocale::Dates finnish = {"kello %d. %B %y, %A", "maaliskuu", "maalis", "tiistai", "ti", "ap.", "ip."};

bool Reads(std::string_view utf8, const CalendarFields& expected)
{
    CalendarFields fields{};
    return platform::ParseLocaleDate(utf8, 0, fields) && fields == expected;
}

TEST(ShortDate, IsTheLocalesForm)
{
    const Environment locale("LC_ALL", "C");
    EXPECT_EQ(platform::ShortDate({2024, 3, 5, 14, 7, 9}), "03/05/24");
    EXPECT_EQ(platform::ShortDate({1600, 1, 31, 0, 0, 0}), "01/31/00");
}

TEST(ShortDate, IsThatOfThePlainLocaleWhenTheUsersIsNotInstalled)
{
    const Environment locale("LC_ALL", "xx_XX.no-such-locale");
    EXPECT_EQ(platform::ShortDate({2024, 3, 5, 14, 7, 9}), "03/05/24");
}

TEST(ShortDate, FollowsTheUsersLocale)
{
    {
        const TestLocale locale(german);
        EXPECT_EQ(platform::ShortDate({2024, 3, 5, 14, 7, 9}), "05.03.2024");
    }
    const TestLocale locale(finnish);
    EXPECT_EQ(platform::ShortDate({2024, 3, 5, 14, 7, 9}), "kello 05. maaliskuu 24, tiistai");
}

TEST(ShortDate, IsInUtf8)
{
    TestLocale::Dates dates = german;
    dates.form = "%d. %B %Y";
    const TestLocale locale(dates);
    EXPECT_EQ(platform::ShortDate({2024, 3, 5, 0, 0, 0}), "05. M\xC3\xA4rz 2024");
}

TEST(ShortDate, IsEmptyFromSeventyEightCharactersOn)
{
    const std::string march(30, 'm');
    for (const size_t length : {76u, 77u, 78u, 79u, 80u, 81u, 200u}) {
        const std::string rest(length % march.size(), 'x');
        std::string form = rest;
        std::string expected = rest;
        for (size_t month = 0; month < length / march.size(); ++month) {
            form += "%B";
            expected += march;
        }
        TestLocale::Dates dates = german;
        dates.form = form.c_str();
        dates.march = march.c_str();
        const TestLocale locale(dates);
        EXPECT_EQ(platform::ShortDate({2024, 3, 5, 0, 0, 0}), length <= 77 ? expected : "") << length;
    }
}

TEST(ShortDate, IsEmptyForAnEmptyForm)
{
    TestLocale::Dates dates = german;
    dates.form = "";
    const TestLocale locale(dates);
    EXPECT_EQ(platform::ShortDate({2024, 3, 5, 0, 0, 0}), "");
}

TEST(ParseLocaleDate, ReadsInTheOrderOfTheUsersLocale)
{
    const CalendarFields fifthOfMarch = {2024, 3, 5, 0, 0, 0};
    const CalendarFields thirdOfMay = {2024, 5, 3, 0, 0, 0};
    {
        const TestLocale locale(german);
        EXPECT_TRUE(Reads("05.03.2024", fifthOfMarch));
        EXPECT_TRUE(Reads("05/03/2024", fifthOfMarch));
        EXPECT_TRUE(Reads("2024-03-05", fifthOfMarch));
    }
    TestLocale::Dates dates = german;
    dates.form = "%m/%d/%Y";
    const TestLocale locale(dates);
    EXPECT_TRUE(Reads("05.03.2024", thirdOfMay));
    EXPECT_TRUE(Reads("05/03/2024", thirdOfMay));
    EXPECT_TRUE(Reads("2024-03-05", fifthOfMarch));
}

TEST(ParseLocaleDate, KnowsTheNamesOfTheUsersLocale)
{
    const CalendarFields date = {2024, 3, 5, 0, 0, 0};
    {
        const TestLocale locale(german);
        EXPECT_TRUE(Reads("5. M\xC3\xA4rz 2024", date));
        EXPECT_TRUE(Reads("5. M\xC3\xA4r. 2024", date));
        EXPECT_TRUE(Reads("DIENSTAG, 5. M\xC3\x84RZ 2024", date));
        EXPECT_TRUE(Reads("Di, 5. M\xC3\xA4rz 2024", date));
        EXPECT_FALSE(Reads("5. M\xE4rz 2024", date)) << "not in UTF-8";
        EXPECT_FALSE(Reads("5. March 2024", date)) << "an English name";
    }
    const TestLocale locale(finnish);
    EXPECT_TRUE(Reads("kello 05. maaliskuu 24, tiistai", date));
    EXPECT_TRUE(Reads("ti 5 maalis 2024", date));
    EXPECT_TRUE(Reads("5.3.2024 2:07 ip.", {2024, 3, 5, 14, 7, 0}));
    EXPECT_TRUE(Reads("5.3.2024 2:07 ap", {2024, 3, 5, 2, 7, 0}));
    EXPECT_TRUE(Reads("5.3.2024 2:07 PM", {2024, 3, 5, 14, 7, 0})) << "the English letters do, too";
    EXPECT_TRUE(Reads("5.3.2024 12:07 a.m.", {2024, 3, 5, 0, 7, 0}));
}

TEST(ParseLocaleDate, KnowsEveryMonthAndWeekday)
{
    const TestLocale locale(german);
    const char* const months[] = {"January", "February", "M\xC3\xA4rz", "April",   "May",      "June",
                                  "July",    "August",   "September",   "October", "November", "December"};
    const char* const shortMonths[] = {"ja", "fe", "m\xC3\xA4r", "ap", "my", "jn", "jl", "au", "se", "oc", "no", "de"};
    for (int index = 0; index < 12; ++index) {
        const CalendarFields date = {2024, index + 1, 5, 0, 0, 0};
        EXPECT_TRUE(Reads(std::string("5. ") + months[index] + " 2024", date)) << months[index];
        EXPECT_TRUE(Reads(std::string("5. ") + shortMonths[index] + " 2024", date)) << shortMonths[index];
    }
    for (const char* const day : {"Sunday", "Monday", "Dienstag", "Wednesday", "Thursday", "Friday", "Saturday", "Su",
                                  "Mo", "Di", "We", "Th", "Fr", "Sa"})
        EXPECT_TRUE(Reads(std::string(day) + ", 5.3.2024", {2024, 3, 5, 0, 0, 0})) << day;
}

TEST(ParseLocaleDate, ReadsByTheLocaleOfTheEnvironment)
{
    for (const char* const name : {"C", "xx_XX.no-such-locale"}) {
        const Environment locale("LC_ALL", name);
        CalendarFields fields{};
        EXPECT_TRUE(platform::ParseLocaleDate("TUESDAY, MARCH 5, 2024 2:07 pm", 0, fields)) << name;
        EXPECT_EQ(fields, (CalendarFields{2024, 3, 5, 14, 7, 0})) << name;
        EXPECT_TRUE(platform::ParseLocaleDate("3/5/2024", platform::dateOnly, fields)) << name;
        EXPECT_EQ(fields, (CalendarFields{2024, 3, 5, 0, 0, 0})) << name;
        EXPECT_TRUE(platform::ParseLocaleDate("2024-03-05T14:07:09", 0, fields)) << name;
        EXPECT_EQ(fields, (CalendarFields{2024, 3, 5, 14, 7, 9})) << name;
    }
}

TEST(ParseLocaleDate, TakesThisYearForAMissingOne)
{
    const Environment locale("LC_ALL", "C");
    CalendarFields before{};
    CalendarFields after{};
    CalendarFields fields{};
    ASSERT_TRUE(platform::LocalTimeFromSeconds(platform::CurrentTime(), before));
    ASSERT_TRUE(platform::ParseLocaleDate("March 5", 0, fields));
    ASSERT_TRUE(platform::LocalTimeFromSeconds(platform::CurrentTime(), after));
    EXPECT_TRUE(fields.year == before.year || fields.year == after.year) << fields.year;
    EXPECT_EQ(fields, (CalendarFields{fields.year, 3, 5, 0, 0, 0}));
}

} // namespace
