#include "framework/OleDate.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using framework::DayAndSecond;
using platform::CalendarFields;

TEST(DayNumber, CountsFromTheLastDaysOf1899)
{
    const struct
    {
        int year, month, day, number;
    } rows[] = {{1899, 12, 30, 0},       {1899, 12, 31, 1},      {1899, 12, 29, -1},    {1900, 1, 1, 2},
                {1900, 2, 28, 60},       {1900, 3, 1, 61},       {1970, 1, 1, 25569},   {2000, 2, 29, 36585},
                {2000, 3, 1, 36586},     {2024, 3, 5, 45356},    {1600, 1, 1, -109571}, {100, 1, 1, -657434},
                {9999, 12, 31, 2958465}, {1582, 10, 15, -115858}};
    for (const auto& row : rows)
        EXPECT_EQ(framework::DayNumber(row.year, row.month, row.day), row.number)
            << row.year << '-' << row.month << '-' << row.day;
}

TEST(OleDate, ReadsEveryDayOfItsYearsBack)
{
    constexpr int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    int number = -657434;
    int second = 0;
    for (int year = 100; year <= 9999; ++year)
        for (int month = 1; month <= 12; ++month) {
            const bool isLeap = year % 400 == 0 || (year % 4 == 0 && year % 100 != 0);
            const int lastDay = month == 2 && isLeap ? 29 : days[month - 1];
            ASSERT_EQ(platform::DaysInMonth(year, month), lastDay) << year << '-' << month;
            for (int day = 1; day <= lastDay; ++day, ++number) {
                second = (second + 7919) % 86400; // a prime step, so that every second of the day occurs
                const CalendarFields fields = {year, month, day, second / 3600, second / 60 % 60, second % 60};
                double value = NAN;
                ASSERT_TRUE(framework::OleDateFromFields(fields, value));
                ASSERT_EQ(std::trunc(value), number);
                CalendarFields read{};
                ASSERT_TRUE(framework::FieldsFromOleDate(value, read));
                ASSERT_EQ(read, fields) << year << '-' << month << '-' << day << ' ' << second;
            }
        }
    EXPECT_EQ(number, 2958466);
}

TEST(OleDate, LeavesTheTargetAloneWhenItFails)
{
    double value = 7;
    EXPECT_FALSE(framework::OleDateFromFields({2024, 2, 30, 0, 0, 0}, value));
    EXPECT_FALSE(framework::OleDateFromFields({2024, 2, 1, 24, 0, 0}, value));
    EXPECT_EQ(value, 7);
    DayAndSecond split = {7, 8};
    CalendarFields fields = {1, 2, 3, 4, 5, 6};
    for (const double unreadable :
         {std::nan(""), std::numeric_limits<double>::infinity(), -1e300, 2958466.0, -657435.0}) {
        EXPECT_FALSE(framework::SplitOleDate(unreadable, split)) << unreadable;
        EXPECT_FALSE(framework::FieldsFromOleDate(unreadable, fields)) << unreadable;
    }
    EXPECT_EQ(split.day, 7);
    EXPECT_EQ(split.second, 8);
    EXPECT_EQ(fields, (CalendarFields{1, 2, 3, 4, 5, 6}));
}

TEST(SplitOleDate, TakesTheNearestSecond)
{
    constexpr double second = 1.0 / 86400;
    const struct
    {
        double value;
        int day, second;
    } rows[] = {{0.0, 0, 0},
                {-0.0, 0, 0},
                {-0.25, 0, 21600},
                {0.25, 0, 21600},
                {-1.25, -1, 21600},
                {1.25, 1, 21600},
                {10 + 1.4 * second, 10, 1},
                {10 + 1.6 * second, 10, 2},
                {-10 - 1.4 * second, -10, 1},
                {-10 - 1.6 * second, -10, 2},
                {10 + 86399.6 * second, 11, 0},
                {-10 - 86399.6 * second, -9, 0},
                {2958465.0 + 86399.4 * second, 2958465, 86399},
                {-657434.0 - 86399.4 * second, -657434, 86399}};
    for (const auto& row : rows) {
        DayAndSecond split{};
        EXPECT_TRUE(framework::SplitOleDate(row.value, split)) << row.value;
        EXPECT_EQ(split.day, row.day) << row.value;
        EXPECT_EQ(split.second, row.second) << row.value;
    }
    DayAndSecond split{};
    EXPECT_FALSE(framework::SplitOleDate(2958465.0 + 86399.6 * second, split)) << "rounds to the year 10000";
}

TEST(DayOfWeek, CountsFromSunday)
{
    EXPECT_EQ(framework::DayOfWeek(0), 7);
    EXPECT_EQ(framework::DayOfWeek(1), 1);
    EXPECT_EQ(framework::DayOfWeek(-1), 6);
    EXPECT_EQ(framework::DayOfWeek(-7), 7);
    EXPECT_EQ(framework::DayOfWeek(-657434), 6);
    EXPECT_EQ(framework::DayOfWeek(2958465), 6);
}

TEST(OleDateFromDayAndFraction, RecombinesWhatTruncationSplits)
{
    EXPECT_EQ(framework::OleDateFromDayAndFraction(5, 0.25), 5.25);
    EXPECT_EQ(framework::OleDateFromDayAndFraction(0, 0.25), 0.25);
    EXPECT_EQ(framework::OleDateFromDayAndFraction(-1, 0.25), -1.25);
    EXPECT_EQ(framework::OleDateFromDayAndFraction(-1, 0), -1.0);
    EXPECT_EQ(framework::OleDateFromDayAndFraction(-1, std::nextafter(1.0, 0.0)), 0.0);
    EXPECT_EQ(framework::OleDateFromDayAndFraction(40000, std::nextafter(1.0, 0.0)), 40001.0);
    EXPECT_EQ(framework::OleDateFromDayAndFraction(2147483647.0 + 45356, 0.5), 2147529003.5);
}

} // namespace
