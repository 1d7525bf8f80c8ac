#include "framework/CTime.h"

#include "unit/CentralEuropeanTime.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

TEST(CTime, StartsAtZero)
{
    EXPECT_EQ(CTime().GetTime(), 0);
    EXPECT_EQ(sizeof(CTime), 8u);
}

TEST(CTime, KeepsAnyNumberOfSeconds)
{
    for (const long long seconds : {0LL, -1LL, 1720000000LL, LLONG_MAX, LLONG_MIN})
        EXPECT_EQ(CTime(seconds).GetTime(), seconds);
}

TEST(CTime, ReadsAndTakesLocalTime)
{
    const CentralEuropeanTime zone;
    const CTime time(2024, 7, 3, 11, 46, 40);
    EXPECT_EQ(time.GetTime(), 1720000000);
    EXPECT_EQ(time.GetYear(), 2024);
    EXPECT_EQ(time.GetMonth(), 7);
    EXPECT_EQ(time.GetDay(), 3);
    EXPECT_EQ(time.GetHour(), 11);
    EXPECT_EQ(time.GetMinute(), 46);
    EXPECT_EQ(time.GetSecond(), 40);
}

TEST(CTime, HeedsTheCallersDaylightSaving)
{
    const CentralEuropeanTime zone;
    EXPECT_EQ(CTime(2024, 10, 27, 2, 30, 0, 1).GetTime(), 1729989000);
    EXPECT_EQ(CTime(2024, 10, 27, 2, 30, 0, 0).GetTime(), 1729992600);
    EXPECT_EQ(CTime(2024, 7, 3, 11, 46, 40, -1).GetTime(), 1720000000);
}

TEST(CTime, AnswersZeroForFieldsThatCannotBeRead)
{
    const CTime time(LLONG_MAX);
    EXPECT_EQ(time.GetYear(), 0);
    EXPECT_EQ(time.GetMonth(), 0);
    EXPECT_EQ(time.GetDay(), 0);
    EXPECT_EQ(time.GetHour(), 0);
    EXPECT_EQ(time.GetMinute(), 0);
    EXPECT_EQ(time.GetSecond(), 0);
}

TEST(CTime, IsMinusOneForALocalTimeOutOfReach)
{
    EXPECT_EQ(CTime(INT_MIN, 1, 1, 0, 0, 0).GetTime(), -1);
}

TEST(CTime, ComparesByTime)
{
    EXPECT_TRUE(CTime(5) == CTime(5));
    EXPECT_TRUE(CTime(5) != CTime(6));
    EXPECT_TRUE(CTime(-1) < CTime(0));
    EXPECT_TRUE(CTime(6) > CTime(5));
    EXPECT_TRUE(CTime(5) <= CTime(5));
    EXPECT_TRUE(CTime(5) >= CTime(5));
}

TEST(CTime, TellsNow)
{
    const time_t before = time(nullptr);
    EXPECT_GE(CTime::GetCurrentTime().GetTime(), before);
    EXPECT_LE(CTime::GetCurrentTime().GetTime(), time(nullptr));
}

} // namespace
