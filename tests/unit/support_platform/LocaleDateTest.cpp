#include "platform/LocaleDate.h"

#include "platform/LocalTime.h"
#include "unit/Environment.h"

#include <gtest/gtest.h>

namespace {

using platform::CalendarFields;

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

TEST(ParseLocaleDate, LeavesTheResultAloneForATextThatIsNoDate)
{
    using namespace std::string_view_literals;
    for (const std::string_view text : {""sv, "\0"sv, "2024-03-05\0"sv, "\xFF\xFE"sv, "2024-\xC3-05"sv, "\xE2\x82"sv}) {
        CalendarFields fields = {1, 2, 3, 4, 5, 6};
        EXPECT_FALSE(platform::ParseLocaleDate(text, 0, fields)) << text;
        EXPECT_EQ(fields, (CalendarFields{1, 2, 3, 4, 5, 6})) << text;
    }
}

} // namespace
