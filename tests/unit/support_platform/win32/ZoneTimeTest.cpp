#include "platform/win32/ZoneTime.h"

#include "unit/support_platform/BerlinTimes.h"

#include <climits>
#include <cwchar>

namespace {

using platform::CalendarFields;
using platform::DaylightSaving;

constexpr CalendarFields untouched = {1, 2, 3, 4, 5, 6};

DYNAMIC_TIME_ZONE_INFORMATION Zone(const wchar_t* name)
{
    DYNAMIC_TIME_ZONE_INFORMATION zone{};
    std::wcscpy(zone.TimeZoneKeyName, name);
    return zone;
}

class ZoneTime : public testing::Test
{
protected:
    CalendarFields Fields(int64_t seconds, const DYNAMIC_TIME_ZONE_INFORMATION& zone) const
    {
        CalendarFields fields{};
        EXPECT_TRUE(platform::ZoneTimeFromSeconds(&zone, seconds, fields)) << seconds;
        return fields;
    }

    const DYNAMIC_TIME_ZONE_INFORMATION m_berlin = Zone(L"W. Europe Standard Time");
    const DYNAMIC_TIME_ZONE_INFORMATION m_newYork = Zone(L"Eastern Standard Time");
    const DYNAMIC_TIME_ZONE_INFORMATION m_universal = Zone(L"UTC");
};

TEST_F(ZoneTime, BreaksDownInTheZone)
{
    ExpectBrokenDownInBerlin([this](int64_t seconds, CalendarFields& fields) {
        return platform::ZoneTimeFromSeconds(&m_berlin, seconds, fields);
    });
    EXPECT_EQ(Fields(-11644473600, m_universal), (CalendarFields{1601, 1, 1, 0, 0, 0}));
    EXPECT_EQ(Fields(253402300799, m_universal), (CalendarFields{9999, 12, 31, 23, 59, 59}));
}

// Daylight saving began there on the first Sunday of April until 2006, on the second of March since.
TEST_F(ZoneTime, UsesTheRulesOfTheYear)
{
    EXPECT_EQ(Fields(1142424000, m_newYork), (CalendarFields{2006, 3, 15, 7, 0, 0}));
    EXPECT_EQ(Fields(1173960000, m_newYork), (CalendarFields{2007, 3, 15, 8, 0, 0}));
    EXPECT_EQ(platform::SecondsFromZoneTime(&m_newYork, {2006, 3, 15, 7, 0, 0}, DaylightSaving::decidedBySystem),
              1142424000);
    EXPECT_EQ(platform::SecondsFromZoneTime(&m_newYork, {2007, 3, 15, 8, 0, 0}, DaylightSaving::decidedBySystem),
              1173960000);
}

TEST_F(ZoneTime, FailsOutsideTheYearsOfWindows)
{
    for (const int64_t seconds : {INT64_MAX, INT64_MIN, int64_t{-11644473601}, int64_t{910692730086}}) {
        CalendarFields fields = untouched;
        EXPECT_FALSE(platform::ZoneTimeFromSeconds(&m_universal, seconds, fields)) << seconds;
        EXPECT_EQ(fields, untouched) << seconds;
    }
}

TEST_F(ZoneTime, ReadsLocalFields)
{
    ExpectReadInBerlin([this](const CalendarFields& fields, DaylightSaving daylightSaving) {
        return platform::SecondsFromZoneTime(&m_berlin, fields, daylightSaving);
    });
}

TEST_F(ZoneTime, TakesDaylightSavingWhereBothArePossible)
{
    EXPECT_EQ(platform::SecondsFromZoneTime(&m_berlin, {2024, 10, 27, 2, 30, 0}, DaylightSaving::decidedBySystem),
              1729989000);
}

TEST_F(ZoneTime, FailsWithMinusOne)
{
    const CalendarFields rows[] = {{INT_MAX, INT_MAX, 1, 0, 0, 0}, {INT_MIN, 1, 1, 0, 0, 0},
                                   {2024, INT_MIN, 1, 0, 0, 0},    {1600, 12, 31, 0, 0, 0},
                                   {30828, 1, 1, 0, 0, 0},         {1970, 1, INT_MIN, 0, 0, 0},
                                   {-60000, 1, 1, 0, 0, 0},        {67560, 1, 1, 0, 0, 0}};
    for (const CalendarFields& fields : rows)
        for (const DaylightSaving daylightSaving : {DaylightSaving::off, DaylightSaving::decidedBySystem})
            EXPECT_EQ(platform::SecondsFromZoneTime(&m_universal, fields, daylightSaving), -1) << fields.year;
}

TEST(LocalTimeOfWindows, IsThatOfTheSystemsZone)
{
    SYSTEMTIME before;
    SYSTEMTIME after;
    CalendarFields fields{};
    do {
        GetLocalTime(&before);
        ASSERT_TRUE(platform::LocalTimeFromSeconds(platform::CurrentTime(), fields));
        GetLocalTime(&after);
    } while (before.wSecond != after.wSecond);
    EXPECT_EQ(fields,
              (CalendarFields{after.wYear, after.wMonth, after.wDay, after.wHour, after.wMinute, after.wSecond}));
    const int64_t summer = 1720000000;
    ASSERT_TRUE(platform::LocalTimeFromSeconds(summer, fields));
    EXPECT_EQ(platform::SecondsFromLocalTime(fields, DaylightSaving::decidedBySystem), summer);
}

TEST(CurrentTimeOfWindows, AgreesWithTheRunTimeLibrary)
{
    const int64_t before = _time64(nullptr);
    const int64_t now = platform::CurrentTime();
    EXPECT_GE(now, before);
    EXPECT_LE(now, _time64(nullptr));
}

} // namespace
