#include "unit/CentralEuropeanTime.h"
#include "unit/support_platform/BerlinTimes.h"

#include <climits>

// The zone is that of the variable TZ, and a year may be any number.
namespace {

using platform::CalendarFields;
using platform::DaylightSaving;

constexpr CalendarFields untouched = {1, 2, 3, 4, 5, 6};

TEST(CurrentTimeOfPosix, AgreesWithTheSystem)
{
    const time_t before = time(nullptr);
    const int64_t now = platform::CurrentTime();
    EXPECT_GE(now, before);
    EXPECT_LE(now, time(nullptr));
}

TEST(LocalTimeInTheZoneOfTz, BreaksDownInTheLocalZone)
{
    const CentralEuropeanTime zone;
    ExpectBrokenDownInBerlin(platform::LocalTimeFromSeconds);
}

TEST(LocalTimeInTheZoneOfTz, FailsForAYearThatAnIntCannotHold)
{
    for (const int64_t seconds : {INT64_MAX, INT64_MIN, int64_t{67768036191676799}}) {
        CalendarFields fields = untouched;
        EXPECT_FALSE(platform::LocalTimeFromSeconds(seconds, fields)) << seconds;
        EXPECT_EQ(fields, untouched) << seconds;
    }
}

TEST(SecondsInTheZoneOfTz, ReadsLocalFields)
{
    const CentralEuropeanTime zone;
    ExpectReadInBerlin(platform::SecondsFromLocalTime);
    EXPECT_EQ(platform::SecondsFromLocalTime({INT_MAX, 1, 1, 0, 0, 0}, DaylightSaving::decidedBySystem),
              67767976201993200);
}

TEST(SecondsInTheZoneOfTz, FailsWithMinusOne)
{
    EXPECT_EQ(platform::SecondsFromLocalTime({INT_MAX, INT_MAX, 1, 0, 0, 0}, DaylightSaving::off), -1);
    EXPECT_EQ(platform::SecondsFromLocalTime({INT_MIN, 1, 1, 0, 0, 0}, DaylightSaving::off), -1);
    EXPECT_EQ(platform::SecondsFromLocalTime({2024, INT_MIN, 1, 0, 0, 0}, DaylightSaving::off), -1);
}

} // namespace
