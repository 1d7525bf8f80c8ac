#include "platform/LocalTime.h"

#include "unit/Environment.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

using platform::CalendarFields;
using platform::DaylightSaving;

constexpr const char* centralEurope = "CET-1CEST,M3.5.0,M10.5.0/3";
constexpr CalendarFields untouched = {1, 2, 3, 4, 5, 6};

TEST(CurrentTime, AgreesWithTheSystem)
{
    const time_t before = time(nullptr);
    const int64_t now = platform::CurrentTime();
    EXPECT_GE(now, before);
    EXPECT_LE(now, time(nullptr));
}

TEST(LocalTimeFromSeconds, BreaksDownInTheLocalZone)
{
    const Environment zone("TZ", centralEurope);
    const struct
    {
        int64_t seconds;
        CalendarFields fields;
    } rows[] = {{0, {1970, 1, 1, 1, 0, 0}},
                {-1, {1970, 1, 1, 0, 59, 59}},
                {1711846799, {2024, 3, 31, 1, 59, 59}},
                {1711846800, {2024, 3, 31, 3, 0, 0}},
                {4102444799, {2100, 1, 1, 0, 59, 59}}};
    for (const auto& row : rows) {
        CalendarFields fields{};
        EXPECT_TRUE(platform::LocalTimeFromSeconds(row.seconds, fields)) << row.seconds;
        EXPECT_EQ(fields, row.fields) << row.seconds;
    }
}

TEST(LocalTimeFromSeconds, FailsForAYearThatAnIntCannotHold)
{
    for (const int64_t seconds : {INT64_MAX, INT64_MIN, int64_t{67768036191676799}}) {
        CalendarFields fields = untouched;
        EXPECT_FALSE(platform::LocalTimeFromSeconds(seconds, fields)) << seconds;
        EXPECT_EQ(fields, untouched) << seconds;
    }
}

TEST(SecondsFromLocalTime, ReadsLocalFields)
{
    const Environment zone("TZ", centralEurope);
    const struct
    {
        CalendarFields fields;
        DaylightSaving daylightSaving;
        int64_t seconds;
    } rows[] = {{{1970, 1, 1, 1, 0, 0}, DaylightSaving::decidedBySystem, 0},
                {{2024, 7, 3, 11, 46, 40}, DaylightSaving::decidedBySystem, 1720000000},
                {{2024, 7, 3, 11, 46, 40}, DaylightSaving::on, 1720000000},
                {{2024, 7, 3, 11, 46, 40}, DaylightSaving::off, 1720003600},
                {{2024, 10, 27, 2, 30, 0}, DaylightSaving::on, 1729989000},
                {{2024, 10, 27, 2, 30, 0}, DaylightSaving::off, 1729992600},
                {{2024, 13, 1, 0, 0, 0}, DaylightSaving::decidedBySystem, 1735686000},
                {{INT_MAX, 1, 1, 0, 0, 0}, DaylightSaving::decidedBySystem, 67767976201993200}};
    for (const auto& row : rows)
        EXPECT_EQ(platform::SecondsFromLocalTime(row.fields, row.daylightSaving), row.seconds) << row.seconds;
}

TEST(SecondsFromLocalTime, FailsWithMinusOne)
{
    EXPECT_EQ(platform::SecondsFromLocalTime({INT_MAX, INT_MAX, 1, 0, 0, 0}, DaylightSaving::off), -1);
    EXPECT_EQ(platform::SecondsFromLocalTime({INT_MIN, 1, 1, 0, 0, 0}, DaylightSaving::off), -1);
    EXPECT_EQ(platform::SecondsFromLocalTime({2024, INT_MIN, 1, 0, 0, 0}, DaylightSaving::off), -1);
}

} // namespace
