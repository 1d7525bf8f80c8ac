#include "datetime/DateArithmetic.h"
#include "unit/datetime/DateTestSupport.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>

namespace {

const CDateTime emptyDates[] = {CDateTime(), Raw(45356.5, COleDateTime::invalid), Raw(45356.5, COleDateTime::null),
                                CDateTime(1599, 12, 31, 0, 0, 0), CDateTime(3000, 1, 1, 0, 0, 0)};

TEST(AddDays, MovesTheDateAndKeepsTheTime)
{
    const struct
    {
        CDateTime from;
        int days;
        const char* to;
    } rows[] = {
        {{2024, 2, 28, 14, 7, 9}, 1, "2024-02-29 14:07:09 (0)"},
        {{2024, 2, 28, 14, 7, 9}, 2, "2024-03-01 14:07:09 (0)"},
        {{2024, 1, 1, 14, 7, 9}, -1, "2023-12-31 14:07:09 (0)"},
        {{2024, 3, 5, 14, 7, 9}, 0, "2024-03-05 14:07:09 (0)"},
        {{1899, 12, 31, 6, 0, 0}, -1, "1899-12-30 06:00:00 (0)"},
        {{1899, 12, 31, 6, 0, 0}, -2, "1899-12-29 06:00:00 (0)"},
        {{1899, 12, 29, 6, 0, 0}, 1, "1899-12-30 06:00:00 (0)"},
        {{1899, 12, 29, 6, 0, 0}, -1, "1899-12-28 06:00:00 (0)"},
        {{1899, 12, 28, 23, 59, 59}, 3, "1899-12-31 23:59:59 (0)"},
        {{1600, 1, 1, 23, 59, 59}, 511339, "2999-12-31 23:59:59 (0)"},
        {{2999, 12, 31, 23, 59, 59}, -511339, "1600-01-01 23:59:59 (0)"},
        {Raw(-0.25), -1, "1899-12-29 06:00:00 (0)"},
        {Raw(-0.25), 1, "1899-12-31 06:00:00 (0)"},
    };
    for (const auto& row : rows) {
        CDateTime date = row.from;
        EXPECT_TRUE(date.AddDays(row.days)) << row.to;
        EXPECT_EQ(Shown(date), row.to) << Shown(row.from) << " + " << row.days;
    }
}

TEST(Arithmetic, LeavesTheValueAsItIsWhenNothingIsAdded)
{
    for (const double value : {-0.25, 45356.123456789, -1.9999999, 0.9999999}) {
        CDateTime date = Raw(value);
        EXPECT_TRUE(date.AddDays(0));
        EXPECT_TRUE(date.AddMonths(0));
        EXPECT_TRUE(date.AddYears(0));
        EXPECT_EQ(date.GetValue(), value);
    }
}

TEST(AddDays, KeepsTheFractionOfASecond)
{
    CDateTime date = Raw(45356.75 + 1.0 / 1048576);
    ASSERT_TRUE(date.AddDays(-45360));
    EXPECT_EQ(date.GetValue(), -4.75 - 1.0 / 1048576);
    ASSERT_TRUE(date.AddDays(45360));
    EXPECT_EQ(date.GetValue(), 45356.75 + 1.0 / 1048576);
}

TEST(AddDays, MayEndAtTheEmptyDate)
{
    CDateTime date(1899, 12, 31, 0, 0, 0);
    EXPECT_TRUE(date.AddDays(-1));
    EXPECT_EQ(date.GetValue(), 0.0);
    EXPECT_EQ(date.GetStatus(), CDateTime::valid);
    EXPECT_TRUE(date.IsNull());
}

TEST(AddDays, StoresTimesBeforeTheEpochForwardFromTheStartOfTheirDay)
{
    CDateTime date(1899, 12, 31, 6, 0, 0);
    ASSERT_TRUE(date.AddDays(-2));
    EXPECT_EQ(date.GetValue(), -1.25);
}

TEST(AddDays, TakesAFractionThatADoubleCannotHoldAsTheNextDay)
{
    CDateTime date = Raw(std::nextafter(1.0, 0.0));
    ASSERT_TRUE(date.AddDays(-2));
    EXPECT_EQ(Shown(date), "1899-12-29 00:00:00 (0)");
    date = Raw(std::nextafter(1.0, 0.0));
    ASSERT_TRUE(date.AddDays(40000));
    EXPECT_EQ(Shown(date), "2009-07-07 00:00:00 (0)");
}

TEST(AddDays, RefusesANullDate)
{
    for (CDateTime date : emptyDates)
        for (const int days : {0, 1, -1}) {
            const std::string before = Shown(date);
            EXPECT_FALSE(date.AddDays(days)) << before;
            EXPECT_EQ(Shown(date), before);
        }
}

TEST(AddDays, Kept_K54_ReportsSuccessForADateOutsideTheValidYears)
{
    CDateTime date(2999, 12, 31, 12, 0, 0);
    EXPECT_TRUE(date.AddDays(1));
    EXPECT_EQ(Shown(date), "3000-01-01 12:00:00 (0)");
    EXPECT_FALSE(date.IsValid());
    for (const int days : {INT_MAX, INT_MIN}) {
        CDateTime far(2024, 3, 5, 0, 0, 0);
        EXPECT_TRUE(far.AddDays(days));
        EXPECT_EQ(far.GetStatus(), CDateTime::valid);
        EXPECT_FALSE(far.IsValid());
        EXPECT_EQ(far.GetValue(), 45356.0 + days);
    }
}

TEST(AddMonths, ClampsTheDayToTheMonth)
{
    const struct
    {
        CDateTime from;
        int months, dayOfMonth;
        const char* to;
    } rows[] = {
        {{2024, 1, 31, 14, 7, 9}, 1, 0, "2024-02-29 14:07:09 (0)"},
        {{2023, 1, 31, 14, 7, 9}, 1, 0, "2023-02-28 14:07:09 (0)"},
        {{2024, 3, 31, 0, 0, 0}, -1, 0, "2024-02-29 00:00:00 (0)"},
        {{2023, 3, 31, 0, 0, 0}, -1, 0, "2023-02-28 00:00:00 (0)"},
        {{2024, 3, 31, 0, 0, 0}, 1, 0, "2024-04-30 00:00:00 (0)"},
        {{2024, 1, 15, 0, 0, 0}, 13, 0, "2025-02-15 00:00:00 (0)"},
        {{2024, 12, 15, 0, 0, 0}, 1, 0, "2025-01-15 00:00:00 (0)"},
        {{2024, 1, 15, 0, 0, 0}, -1, 0, "2023-12-15 00:00:00 (0)"},
        {{2024, 1, 15, 0, 0, 0}, -13, 0, "2022-12-15 00:00:00 (0)"},
        {{2024, 6, 15, 0, 0, 0}, 12, 0, "2025-06-15 00:00:00 (0)"},
        {{2024, 6, 15, 0, 0, 0}, -12, 0, "2023-06-15 00:00:00 (0)"},
        {{2024, 1, 5, 0, 0, 0}, 1, 31, "2024-02-29 00:00:00 (0)"},
        {{2024, 3, 5, 0, 0, 0}, 1, 31, "2024-04-30 00:00:00 (0)"},
        {{2024, 3, 5, 0, 0, 0}, 1, 1, "2024-04-01 00:00:00 (0)"},
        {{2024, 1, 5, 0, 0, 0}, 1, 30, "2024-02-29 00:00:00 (0)"},
        {{2023, 1, 5, 0, 0, 0}, 1, 29, "2023-02-28 00:00:00 (0)"},
        {{2023, 1, 5, 0, 0, 0}, 1, 28, "2023-02-28 00:00:00 (0)"},
        {{2024, 3, 5, 0, 0, 0}, 1, 32, "2024-04-05 00:00:00 (0)"},
        {{2024, 3, 5, 0, 0, 0}, 1, -1, "2024-04-05 00:00:00 (0)"},
        {{2024, 3, 5, 0, 0, 0}, 1, INT_MIN, "2024-04-05 00:00:00 (0)"},
        {{1900, 1, 31, 6, 0, 0}, -1, 0, "1899-12-31 06:00:00 (0)"},
        {{1900, 1, 29, 6, 0, 0}, -1, 0, "1899-12-29 06:00:00 (0)"},
        {{1900, 1, 30, 0, 0, 0}, -1, 0, "1899-12-30 00:00:00 (0)"},
        {{1899, 12, 30, 6, 0, 0}, 1, 0, "1900-01-30 06:00:00 (0)"},
        {Raw(45356 + 58.6 / 86400), 1, 0, "2024-04-05 00:00:59 (0)"},
        {Raw(45321 + 86399.6 / 86400), 1, 0, "2024-02-29 00:00:00 (0)"},
        {{2024, 5, 31, 0, 0, 0}, -1, 0, "2024-04-30 00:00:00 (0)"},
        {{2024, 2, 29, 0, 0, 0}, 12, 0, "2025-02-28 00:00:00 (0)"},
        {{2024, 2, 29, 0, 0, 0}, -48, 0, "2020-02-29 00:00:00 (0)"},
        {{2024, 2, 29, 0, 0, 0}, 1, 30, "2024-03-30 00:00:00 (0)"},
        {{2024, 3, 5, 0, 0, 0}, -1924 * 12, 0, "0100-03-05 00:00:00 (0)"},
        {{2024, 3, 5, 0, 0, 0}, 7975 * 12 + 9, 0, "9999-12-05 00:00:00 (0)"},
    };
    for (const auto& row : rows) {
        CDateTime date = row.from;
        EXPECT_TRUE(date.AddMonths(row.months, row.dayOfMonth)) << row.to;
        EXPECT_EQ(Shown(date), row.to) << Shown(row.from) << " + " << row.months << ", " << row.dayOfMonth;
    }
}

TEST(AddMonths, KeepsTheDayWithoutASecondArgument)
{
    CDateTime date(2024, 1, 15, 0, 0, 0);
    EXPECT_TRUE(date.AddMonths(1));
    EXPECT_EQ(Shown(date), "2024-02-15 00:00:00 (0)");
    EXPECT_TRUE(date.AddYears(1));
    EXPECT_EQ(Shown(date), "2025-02-15 00:00:00 (0)");
}

TEST(AddMonths, ChangesNothingOutsideTheCalendar)
{
    for (const int months : {INT_MAX, INT_MIN, INT_MIN + 1, 7975 * 12 + 10, -(1924 * 12 + 3)}) {
        CDateTime date(2024, 3, 5, 14, 7, 9);
        const double before = date.GetValue();
        EXPECT_FALSE(date.AddMonths(months)) << months;
        EXPECT_EQ(date.GetValue(), before) << months;
        EXPECT_EQ(date.GetStatus(), CDateTime::valid) << months;
    }
}

TEST(AddMonths, LeavesAValueThatCannotBeRead)
{
    double value = 1e300;
    EXPECT_FALSE(datetime::AddMonths(value, 1, 0));
    EXPECT_EQ(value, 1e300);
}

TEST(AddMonths, RefusesANullDate)
{
    for (CDateTime date : emptyDates)
        for (const int count : {0, 1, -1}) {
            const std::string before = Shown(date);
            EXPECT_FALSE(date.AddMonths(count)) << before;
            EXPECT_FALSE(date.AddYears(count)) << before;
            EXPECT_EQ(Shown(date), before);
        }
}

TEST(AddMonths, Kept_K55_ZeroMonthsDoNotSetTheDayOfTheMonth)
{
    CDateTime date(2024, 3, 5, 0, 0, 0);
    EXPECT_TRUE(date.AddMonths(0, 31));
    EXPECT_TRUE(date.AddYears(0, 31));
    EXPECT_EQ(Shown(date), "2024-03-05 00:00:00 (0)");
}

TEST(AddYears, ClampsTheLeapDay)
{
    const struct
    {
        CDateTime from;
        int years, dayOfMonth;
        const char* to;
    } rows[] = {
        {{2024, 2, 29, 14, 7, 9}, 1, 0, "2025-02-28 14:07:09 (0)"},
        {{2024, 2, 29, 0, 0, 0}, 4, 0, "2028-02-29 00:00:00 (0)"},
        {{2024, 2, 29, 0, 0, 0}, -124, 0, "1900-02-28 00:00:00 (0)"},
        {{2024, 3, 5, 0, 0, 0}, 1, 31, "2025-03-31 00:00:00 (0)"},
        {{2024, 4, 5, 0, 0, 0}, 1, 31, "2025-04-30 00:00:00 (0)"},
        {{2023, 2, 5, 0, 0, 0}, 1, 31, "2024-02-29 00:00:00 (0)"},
        {{2024, 12, 31, 0, 0, 0}, 7975, 0, "9999-12-31 00:00:00 (0)"},
        {{2024, 1, 1, 0, 0, 0}, -1924, 0, "0100-01-01 00:00:00 (0)"},
    };
    for (const auto& row : rows) {
        CDateTime date = row.from;
        EXPECT_TRUE(date.AddYears(row.years, row.dayOfMonth)) << row.to;
        EXPECT_EQ(Shown(date), row.to) << Shown(row.from) << " + " << row.years << ", " << row.dayOfMonth;
    }
}

TEST(AddYears, ChangesNothingOutsideTheCalendar)
{
    for (const int years : {INT_MAX, INT_MIN, 7976, -1925, 178956971}) {
        CDateTime date(2024, 3, 5, 14, 7, 9);
        EXPECT_FALSE(date.AddYears(years)) << years;
        EXPECT_EQ(Shown(date), "2024-03-05 14:07:09 (0)") << years;
    }
}

} // namespace
