#include "unit/datetime/DateTestSupport.h"

#include <gtest/gtest.h>

namespace {

/// The current local time through the C library alone, as year * 10^10 ... second.
long long CurrentStamp()
{
    const time_t now = time(nullptr);
    tm local{};
    localtime_r(&now, &local);
    return (((((local.tm_year + 1900) * 100LL + local.tm_mon + 1) * 100 + local.tm_mday) * 100 + local.tm_hour) * 100 +
            local.tm_min) *
               100 +
           local.tm_sec;
}

long long Stamp(const CDateTime& date)
{
    return ((((date.GetYear() * 100LL + date.GetMonth()) * 100 + date.GetDay()) * 100 + date.GetHour()) * 100 +
            date.GetMinute()) *
               100 +
           date.GetSecond();
}

constexpr long long dayZero = 18991230;
constexpr long long timePart = 1000000;

TEST(CDateTimeClock, TellsTheDateAndTimeUnderThreeNames)
{
    const Environment zone("TZ", "XXX-7");
    CDateTime now;
    CDateTime stamp;
    const long long before = CurrentStamp();
    now.SetCurrentDateTime();
    stamp.SetTimeStamp();
    const CDateTime ticks = CDateTime::GetTickCount();
    const long long after = CurrentStamp();
    for (const CDateTime& date : {now, stamp, ticks}) {
        EXPECT_GE(Stamp(date), before);
        EXPECT_LE(Stamp(date), after);
        EXPECT_TRUE(date.IsValid());
    }
}

TEST(CDateTimeClock, Kept_K53_GetTickCountIsTheCurrentDateAndTime)
{
    const long long before = CurrentStamp();
    EXPECT_GE(Stamp(CDateTime::GetTickCount()), before);
    EXPECT_LE(Stamp(CDateTime::GetTickCount()), CurrentStamp());
}

TEST(CDateTimeClock, TellsTodayAtMidnight)
{
    const long long before = CurrentStamp();
    CDateTime set(2000, 1, 1, 1, 1, 1);
    set.SetCurrentDate();
    const CDateTime made = CDateTime::GetCurrentDate();
    const long long after = CurrentStamp();
    for (const CDateTime& date : {set, made}) {
        EXPECT_GE(Stamp(date), before / timePart * timePart);
        EXPECT_LE(Stamp(date), after / timePart * timePart);
        EXPECT_EQ(Stamp(date) % timePart, 0);
    }
}

// Wherever the sun stands, today is another date in one of the two zones than in the universal time.
TEST(CDateTimeClock, TellsTheDateOfTheLocalZone)
{
    for (const char* const name : {"XXX-14", "XXX+12"}) {
        const Environment zone("TZ", name);
        const long long before = CurrentStamp();
        const CDateTime today = CDateTime::GetCurrentDate();
        const CDateTime now = CDateTime::GetTickCount();
        const long long after = CurrentStamp();
        EXPECT_GE(Stamp(today), before / timePart * timePart) << name;
        EXPECT_LE(Stamp(today), after / timePart * timePart) << name;
        EXPECT_GE(Stamp(now), before) << name;
        EXPECT_LE(Stamp(now), after) << name;
    }
}

TEST(CDateTimeClock, TellsTheTimeOnTheDayZero)
{
    const Environment zone("TZ", "XXX-7");
    long long before = 0;
    long long after = 0;
    CDateTime set(2000, 1, 1, 1, 1, 1);
    CDateTime made;
    do { // not across midnight
        before = CurrentStamp();
        set.SetCurrentTime();
        made = CDateTime::GetCurrentClock();
        after = CurrentStamp();
    } while (before / timePart != after / timePart);
    for (const CDateTime& date : {set, made}) {
        EXPECT_GE(Stamp(date), dayZero * timePart + before % timePart);
        EXPECT_LE(Stamp(date), dayZero * timePart + after % timePart);
        EXPECT_EQ(date.GetStatus(), CDateTime::valid);
    }
}

} // namespace
