#include "unit/datetime/Clock.h"

#include <gtest/gtest.h>

namespace {

TEST(CDateTimeClock, TellsTheDateAndTimeUnderThreeNames)
{
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

TEST(CDateTimeClock, TellsTheTimeOnTheDayZero)
{
    ExpectTheTimeOnTheDayZero();
}

} // namespace
