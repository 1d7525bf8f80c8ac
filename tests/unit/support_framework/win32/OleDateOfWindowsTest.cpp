#include "framework/OleDate.h"

#include "platform/win32/WinApi.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <oleauto.h>
#include <random>

// The library counts dates by itself on every system; here the system's own functions say what is right.
namespace {

using platform::CalendarFields;

// The system adds up hours, minutes and seconds, each rounded; the library divides once. Far below a second.
constexpr double tolerance = 1e-9;

using Random = std::mt19937_64;

CalendarFields FieldsOf(const SYSTEMTIME& time)
{
    return {time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond};
}

SYSTEMTIME SystemTime(const CalendarFields& fields)
{
    SYSTEMTIME time{};
    time.wYear = static_cast<WORD>(fields.year);
    time.wMonth = static_cast<WORD>(fields.month);
    time.wDay = static_cast<WORD>(fields.day);
    time.wHour = static_cast<WORD>(fields.hour);
    time.wMinute = static_cast<WORD>(fields.minute);
    time.wSecond = static_cast<WORD>(fields.second);
    return time;
}

bool IsReadAlike(double value)
{
    CalendarFields fields{};
    SYSTEMTIME time{};
    UDATE parts{};
    const bool isRead = framework::FieldsFromOleDate(value, fields);
    const bool isTime = VariantTimeToSystemTime(value, &time) != 0;
    const bool isDate = SUCCEEDED(VarUdateFromDate(value, 0, &parts));
    return isRead == isTime && isRead == isDate &&
           (!isRead || (FieldsOf(time) == fields && FieldsOf(parts.st) == fields));
}

::testing::AssertionResult IsAsOfTheSystem(const CalendarFields& fields)
{
    SYSTEMTIME time = SystemTime(fields);
    double expected = 0;
    double value = 1;
    if (!SystemTimeToVariantTime(&time, &expected) || !framework::OleDateFromFields(fields, value))
        return ::testing::AssertionFailure() << "refused";
    if (std::fabs(value - expected) > tolerance)
        return ::testing::AssertionFailure() << value << " and not " << expected;
    if (!IsReadAlike(value) || !IsReadAlike(expected))
        return ::testing::AssertionFailure() << value << " is read in another way";
    return ::testing::AssertionSuccess();
}

CalendarFields WithTime(CalendarFields fields, uint64_t second)
{
    fields.hour = static_cast<int>(second / 3600);
    fields.minute = static_cast<int>(second / 60 % 60);
    fields.second = static_cast<int>(second % 60);
    return fields;
}

TEST(OleDateOfWindows, IsTheSameForEveryDay)
{
    Random random(1600);
    for (int year = 1600; year <= 2999; ++year)
        for (int month = 1; month <= 12; ++month)
            for (int day = 1; day <= platform::DaysInMonth(year, month); ++day) {
                const CalendarFields midnight = {year, month, day, 0, 0, 0};
                ASSERT_TRUE(IsAsOfTheSystem(midnight)) << year << '-' << month << '-' << day;
                const uint64_t second = random() % framework::secondsPerDay;
                ASSERT_TRUE(IsAsOfTheSystem(WithTime(midnight, second)))
                    << year << '-' << month << '-' << day << ' ' << second;
            }
}

TEST(OleDateOfWindows, IsTheSameForRandomTimes)
{
    Random random(24);
    for (int count = 0; count < 100'000; ++count) {
        const int year = 100 + static_cast<int>(random() % 9900);
        const CalendarFields fields =
            WithTime({year, 1 + static_cast<int>(random() % 12), 1 + static_cast<int>(random() % 28), 0, 0, 0},
                     random() % framework::secondsPerDay);
        ASSERT_TRUE(IsAsOfTheSystem(fields)) << year << '-' << fields.month << '-' << fields.day;
    }
}

TEST(OleDateOfWindows, IsReadAlikeFromRandomValues)
{
    Random random(25);
    for (int count = 0; count < 100'000; ++count) {
        const double value = static_cast<double>(static_cast<int64_t>(random())) / 9223372036854775808.0 * 3'000'000;
        ASSERT_TRUE(IsReadAlike(value)) << value;
    }
}

} // namespace
