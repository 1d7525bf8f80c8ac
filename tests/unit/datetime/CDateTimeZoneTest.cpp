#include "unit/CentralEuropeanTime.h"
#include "unit/datetime/DateTestSupport.h"

#include <gtest/gtest.h>

namespace {

TEST(CDateTimeInCentralEurope, BreaksSecondsDownInLocalTime)
{
    const CentralEuropeanTime zone;
    EXPECT_EQ(Shown(CDateTime(0LL)), "1970-01-01 01:00:00 (0)");
    EXPECT_EQ(Shown(CDateTime(-1LL)), "1970-01-01 00:59:59 (0)");
    EXPECT_EQ(Shown(CDateTime(-3601LL)), "1969-12-31 23:59:59 (0)");
    EXPECT_EQ(Shown(CDateTime(2147483648LL)), "2038-01-19 04:14:08 (0)");
    EXPECT_EQ(Shown(CDateTime(1709644029LL)), "2024-03-05 14:07:09 (0)");
    EXPECT_EQ(Shown(CDateTime(1720000000LL)), "2024-07-03 11:46:40 (0)");
    EXPECT_EQ(Shown(CDateTime(CTime(1720000000))), "2024-07-03 11:46:40 (0)");
}

TEST(CDateTimeInCentralEurope, GivesTheTimeInSecondsFrom1970To2038)
{
    const CentralEuropeanTime zone;
    const struct
    {
        CDateTime date;
        __int64 seconds;
    } rows[] = {
        {{2024, 3, 5, 14, 7, 9}, 1709644029},
        {{2024, 7, 3, 11, 46, 40}, 1720000000},
        {{1970, 1, 1, 1, 0, 0}, 0},
        {{1970, 1, 1, 0, 0, 0}, -3600},
        {{2024, 10, 27, 1, 59, 59}, 1729987199},
        {{2024, 10, 27, 3, 0, 0}, 1729994400},
        {{2038, 1, 19, 4, 14, 8}, 2147483648},
        {{1970, 1, 2, 0, 0, 0}, 82800},
        {{2038, 12, 31, 23, 59, 59}, 2177449199},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.date.GetCTime().GetTime(), row.seconds) << Shown(row.date);
        EXPECT_EQ(static_cast<CTime>(row.date).GetTime(), row.seconds) << Shown(row.date);
    }
}

} // namespace
