#include "unit/datetime/Clock.h"

#include <gtest/gtest.h>

namespace {

// Wherever the sun stands, today is another date in one of the two zones than in the universal time.
TEST(CDateTimeClockOnPosix, TellsTheDateOfTheZoneOfTheEnvironment)
{
    for (const char* const name : {"XXX-14", "XXX+12"}) {
        const Environment zone("TZ", name);
        const long long before = CurrentStamp();
        const CDateTime today = CDateTime::GetCurrentDate();
        const CDateTime now = CDateTime::GetTickCount();
        CDateTime stamp;
        stamp.SetTimeStamp();
        const long long after = CurrentStamp();
        EXPECT_GE(Stamp(today), before / timePart * timePart) << name;
        EXPECT_LE(Stamp(today), after / timePart * timePart) << name;
        EXPECT_GE(Stamp(now), before) << name;
        EXPECT_LE(Stamp(now), after) << name;
        EXPECT_GE(Stamp(stamp), before) << name;
        EXPECT_LE(Stamp(stamp), after) << name;
    }
}

TEST(CDateTimeClockOnPosix, TellsTheTimeOfTheZoneOfTheEnvironment)
{
    const Environment zone("TZ", "XXX-7");
    ExpectTheTimeOnTheDayZero();
}

} // namespace
