#pragma once

#include "platform/LocalTime.h"

#include <gtest/gtest.h>

/// Times in Berlin, whatever knows the zone: an hour before UTC, daylight saving from the last Sunday of March to that
/// of October.
struct BerlinTime
{
    int64_t seconds;
    platform::CalendarFields fields;
    platform::DaylightSaving daylightSaving = platform::DaylightSaving::decidedBySystem;
};

template <class Breakdown> void ExpectBrokenDownInBerlin(Breakdown breakDown)
{
    const BerlinTime rows[] = {{0, {1970, 1, 1, 1, 0, 0}},
                               {-1, {1970, 1, 1, 0, 59, 59}},
                               {1711846799, {2024, 3, 31, 1, 59, 59}},
                               {1711846800, {2024, 3, 31, 3, 0, 0}},
                               {1729990799, {2024, 10, 27, 2, 59, 59}},
                               {1729990800, {2024, 10, 27, 2, 0, 0}},
                               {4102444799, {2100, 1, 1, 0, 59, 59}}};
    for (const BerlinTime& row : rows) {
        platform::CalendarFields fields{};
        EXPECT_TRUE(breakDown(row.seconds, fields)) << row.seconds;
        EXPECT_EQ(fields, row.fields) << row.seconds;
    }
}

template <class Reading> void ExpectReadInBerlin(Reading secondsOf)
{
    using platform::DaylightSaving;
    const BerlinTime rows[] = {{0, {1970, 1, 1, 1, 0, 0}},
                               {-2, {1970, 1, 1, 0, 59, 58}},
                               {1720000000, {2024, 7, 3, 11, 46, 40}},
                               {1720000000, {2024, 7, 3, 11, 46, 40}, DaylightSaving::on},
                               {1720003600, {2024, 7, 3, 11, 46, 40}, DaylightSaving::off},
                               {1729989000, {2024, 10, 27, 2, 30, 0}, DaylightSaving::on},
                               {1729992600, {2024, 10, 27, 2, 30, 0}, DaylightSaving::off},
                               {1735686000, {2024, 13, 1, 0, 0, 0}},
                               {1735776060, {2025, 0, 32, 24, 60, 60}},
                               {1704063600, {2025, -11, 1, 0, 0, 0}},
                               {253402297199, {9999, 12, 31, 23, 59, 59}}};
    for (const BerlinTime& row : rows)
        EXPECT_EQ(secondsOf(row.fields, row.daylightSaving), row.seconds) << row.seconds;
}
