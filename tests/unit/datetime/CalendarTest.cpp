// Every day of the years that the library serves, against a calendar that is walked day by day.
#include "unit/datetime/DateTestSupport.h"

#include <gtest/gtest.h>

namespace {

/// A day of the walk. 1600-01-01 was a Saturday and lies 109571 days before 1899-12-30.
struct Walk
{
    int year = 1600;
    int month = 1;
    int day = 1;
    int number = -109571;
    int weekday = 7; // 1 Sunday to 7 Saturday

    void Next()
    {
        ++number;
        weekday = weekday % 7 + 1;
        if (++day <= LastDay())
            return;
        day = 1;
        if (++month <= 12)
            return;
        month = 1;
        ++year;
    }

private:
    int LastDay() const
    {
        static constexpr int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
        const bool isLeap = year % 400 == 0 || (year % 4 == 0 && year % 100 != 0);
        return month == 2 && isLeap ? 29 : days[month - 1];
    }
};

template <class Check> void ForEveryDay(Check check)
{
    int days = 0;
    for (Walk walk; walk.year < 3000 && !testing::Test::HasFailure(); walk.Next(), ++days)
        check(walk);
    EXPECT_TRUE(testing::Test::HasFailure() || days == 511340) << days << " days from 1600-01-01 to 2999-12-31";
}

TEST(Calendar, BuildsEveryDayAsItsNumber)
{
    ForEveryDay([](const Walk& walk) {
        const CDateTime date(walk.year, walk.month, walk.day, 0, 0, 0);
        ASSERT_EQ(date.GetValue(), walk.number) << walk.year << '-' << walk.month << '-' << walk.day;
        ASSERT_EQ(date.GetStatus(), CDateTime::valid);
    });
}

TEST(Calendar, ReadsEveryDayBackAtBothEndsOfTheDay)
{
    ForEveryDay([](const Walk& walk) {
        for (const int lastSecond : {0, 1}) {
            const CDateTime date(walk.year, walk.month, walk.day, lastSecond * 23, lastSecond * 59, lastSecond * 59);
            ASSERT_EQ(date.GetYear(), walk.year);
            ASSERT_EQ(date.GetMonth(), walk.month);
            ASSERT_EQ(date.GetDay(), walk.day);
            ASSERT_EQ(date.GetHour(), lastSecond * 23);
            ASSERT_EQ(date.GetMinute(), lastSecond * 59);
            ASSERT_EQ(date.GetSecond(), lastSecond * 59);
            ASSERT_TRUE(date.IsValid());
        }
    });
}

TEST(Calendar, ReadsEverySecondOfADayBack)
{
    const struct
    {
        int year, month, day;
    } days[] = {{1600, 1, 1}, {1899, 12, 29}, {1899, 12, 30}, {1899, 12, 31}, {2024, 2, 29}, {2999, 12, 31}};
    for (const auto& [year, month, day] : days)
        for (int second = 0; second < 86400; ++second) {
            const CDateTime date(year, month, day, second / 3600, second / 60 % 60, second % 60);
            ASSERT_EQ(date.GetStatus(), CDateTime::valid);
            ASSERT_EQ(date.GetHour() * 3600 + date.GetMinute() * 60 + date.GetSecond(), second) << year;
            ASSERT_EQ(date.GetYear(), year) << second;
            ASSERT_EQ(date.GetMonth(), month) << second;
            ASSERT_EQ(date.GetDay(), day) << second;
        }
}

TEST(Calendar, RefusesTheDayBehindTheLastOfEveryMonth)
{
    Walk before;
    ForEveryDay([&before](const Walk& walk) {
        if (walk.day == 1 && walk.number > -109571) {
            const CDateTime date(before.year, before.month, before.day + 1, 0, 0, 0);
            ASSERT_EQ(date.GetStatus(), CDateTime::invalid) << before.year << '-' << before.month;
        }
        before = walk;
    });
}

TEST(Calendar, KnowsTheWeekdayOfEveryDay)
{
    ForEveryDay([](const Walk& walk) {
        const CDateTime date(walk.year, walk.month, walk.day, 12, 0, 0);
        ASSERT_EQ(date.GetDayOfWeek(), walk.weekday) << Shown(date);
    });
}

TEST(Calendar, KnowsTheIsoWeekOfEveryDay)
{
    int week = 52; // of 1599, in which 1600 begins
    ForEveryDay([&week](const Walk& walk) {
        const bool isNearNewYear = (walk.month == 12 && walk.day >= 29) || (walk.month == 1 && walk.day <= 4);
        if (walk.weekday == 2)
            week = isNearNewYear ? 1 : week + 1;
        // At the last second too, which must not count as the next day.
        const CDateTime date(walk.year, walk.month, walk.day, 23, 59, 59);
        ASSERT_EQ(date.GetWeekNo(), week) << Shown(date);
    });
}

TEST(Calendar, AddsOneDayAcrossEveryMidnight)
{
    CDateTime date(1600, 1, 1, 6, 0, 0);
    ForEveryDay([&date](const Walk& walk) {
        ASSERT_EQ(date.GetYear() * 10000 + date.GetMonth() * 100 + date.GetDay(),
                  walk.year * 10000 + walk.month * 100 + walk.day);
        ASSERT_EQ(date.GetHour() * 3600 + date.GetMinute() * 60 + date.GetSecond(), 6 * 3600);
        ASSERT_TRUE(date.AddDays(1));
    });
}

} // namespace
