#include "framework/COleDateTime.h"
#include "framework/Variant.h"

#include "unit/CentralEuropeanTime.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstddef>

namespace {

static_assert(sizeof(COleDateTime) == 16);
static_assert(offsetof(COleDateTime, m_dt) == 0 && offsetof(COleDateTime, m_status) == 8);

void Expect(const COleDateTime& date, double value, COleDateTime::DateTimeStatus status)
{
    EXPECT_EQ(date.m_dt, value);
    EXPECT_EQ(static_cast<DATE>(date), value);
    EXPECT_EQ(date.GetStatus(), status);
}

TEST(COleDateTime, StartsAtZeroAndValid)
{
    Expect(COleDateTime(), 0.0, COleDateTime::valid);
}

TEST(COleDateTime, TakesAValue)
{
    Expect(COleDateTime(45356.5), 45356.5, COleDateTime::valid);
    Expect(COleDateTime(2958466.0), 2958466.0, COleDateTime::invalid);
    EXPECT_EQ(COleDateTime(std::nan("")).GetStatus(), COleDateTime::invalid);
}

TEST(COleDateTime, IsBuiltFromFields)
{
    Expect(COleDateTime(2024, 3, 5, 12, 0, 0), 45356.5, COleDateTime::valid);
    Expect(COleDateTime(1899, 12, 29, 6, 0, 0), -1.25, COleDateTime::valid);
    Expect(COleDateTime(2024, 2, 30, 12, 0, 0), 0.0, COleDateTime::invalid);
    Expect(COleDateTime(2024, 3, 5, 24, 0, 0), 0.0, COleDateTime::invalid);
}

TEST(COleDateTime, IsBuiltFromATime)
{
    const CentralEuropeanTime zone;
    EXPECT_EQ(static_cast<DATE>(COleDateTime(1720000000LL)), static_cast<DATE>(COleDateTime(2024, 7, 3, 11, 46, 40)));
    EXPECT_EQ(COleDateTime(CTime(1720000000)).GetHour(), 11);
    Expect(COleDateTime(LLONG_MAX), 0.0, COleDateTime::invalid);
}

TEST(COleDateTime, IsBuiltFromAVariant)
{
    VARIANT variant{};
    Expect(COleDateTime(variant), 0.0, COleDateTime::null);
    variant.vt = VT_NULL;
    Expect(COleDateTime(variant), 0.0, COleDateTime::null);
    variant.vt = VT_DATE;
    variant.date = 45356.5;
    Expect(COleDateTime(variant), 45356.5, COleDateTime::valid);
    variant.vt = VT_ERROR;
    Expect(COleDateTime(variant), 0.0, COleDateTime::invalid);
}

TEST(COleDateTime, ReadsItsFields)
{
    const COleDateTime date(2024, 3, 5, 14, 7, 9);
    EXPECT_EQ(date.GetYear(), 2024);
    EXPECT_EQ(date.GetMonth(), 3);
    EXPECT_EQ(date.GetDay(), 5);
    EXPECT_EQ(date.GetHour(), 14);
    EXPECT_EQ(date.GetMinute(), 7);
    EXPECT_EQ(date.GetSecond(), 9);
}

TEST(COleDateTime, AnswersMinusOneForFieldsThatCannotBeRead)
{
    COleDateTime date(2024, 3, 5, 14, 7, 9);
    date.SetStatus(COleDateTime::null);
    EXPECT_EQ(date.GetYear(), -1);
    EXPECT_EQ(date.GetMonth(), -1);
    EXPECT_EQ(date.GetDay(), -1);
    EXPECT_EQ(date.GetHour(), -1);
    EXPECT_EQ(date.GetMinute(), -1);
    EXPECT_EQ(date.GetSecond(), -1);
    EXPECT_EQ(static_cast<DATE>(date), static_cast<DATE>(COleDateTime(2024, 3, 5, 14, 7, 9)));
}

} // namespace
