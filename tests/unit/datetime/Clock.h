#pragma once

#include "unit/datetime/DateTestSupport.h"

#include <gtest/gtest.h>

/// The current local time through the C library alone, as year * 10^10 ... second.
inline long long CurrentStamp()
{
    const time_t now = time(nullptr);
    const tm local = *std::localtime(&now);
    return (((((local.tm_year + 1900) * 100LL + local.tm_mon + 1) * 100 + local.tm_mday) * 100 + local.tm_hour) * 100 +
            local.tm_min) *
               100 +
           local.tm_sec;
}

inline long long Stamp(const CDateTime& date)
{
    return ((((date.GetYear() * 100LL + date.GetMonth()) * 100 + date.GetDay()) * 100 + date.GetHour()) * 100 +
            date.GetMinute()) *
               100 +
           date.GetSecond();
}

inline constexpr long long timePart = 1000000;

/// The clock alone, against the C library.
inline void ExpectTheTimeOnTheDayZero()
{
    constexpr long long dayZero = 18991230 * timePart;
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
        EXPECT_GE(Stamp(date), dayZero + before % timePart);
        EXPECT_LE(Stamp(date), dayZero + after % timePart);
        EXPECT_EQ(date.GetStatus(), CDateTime::valid);
    }
}
