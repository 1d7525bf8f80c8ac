#include "unit/VariantText.h"
#include "unit/datetime/DateTestSupport.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstring>
#include <limits>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
const double unreadableValues[] = {NAN,     -NAN,         infinity, -infinity,     1e300,         -1e300,
                                   2958466, 4294967296.0, -657435,  -4294967297.0, 2958465.999999};

TEST(CDateTime, StartsAsTheEmptyDate)
{
    const CDateTime date;
    EXPECT_EQ(date.GetValue(), 0.0);
    EXPECT_EQ(date.GetStatus(), CDateTime::valid);
    EXPECT_TRUE(date.IsNull());
    EXPECT_TRUE(date.IsEmpty());
    EXPECT_FALSE(date.IsDateNull());
    EXPECT_FALSE(date.IsTimeNull());
    EXPECT_FALSE(date.IsLeapYear());
    EXPECT_EQ(date.GetDateValue(), 0u);
    EXPECT_EQ(date.GetWeekNo(), -1);
    EXPECT_EQ(date.GetDayOfWeek(), WEEKDAY_NONE);
    EXPECT_EQ(Shown(date), "1899-12-30 00:00:00 (0)");
}

TEST(CDateTime, Kept_K59_TheEmptyDateIsValidAndNull)
{
    EXPECT_TRUE(CDateTime().IsValid());
    EXPECT_TRUE(CDateTime().IsNull());
}

TEST(CDateTime, StoresTheOleAutomationDate)
{
    const struct
    {
        CDateTime date;
        double value;
    } rows[] = {
        {{1899, 12, 30, 0, 0, 0}, 0.0},    {{1899, 12, 30, 6, 0, 0}, 0.25},     {{1899, 12, 31, 0, 0, 0}, 1.0},
        {{1899, 12, 29, 0, 0, 0}, -1.0},   {{1899, 12, 29, 6, 0, 0}, -1.25},    {{1899, 12, 29, 18, 0, 0}, -1.75},
        {{1899, 12, 28, 12, 0, 0}, -2.5},  {{1970, 1, 1, 0, 0, 0}, 25569.0},    {{2024, 3, 5, 12, 0, 0}, 45356.5},
        {{100, 1, 1, 0, 0, 0}, -657434.0}, {{100, 1, 1, 18, 0, 0}, -657434.75}, {{9999, 12, 31, 0, 0, 0}, 2958465.0},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.date.GetValue(), row.value) << Shown(row.date);
        EXPECT_EQ(row.date.GetStatus(), CDateTime::valid) << row.value;
    }
}

TEST(CDateTime, ReadsFieldsAtTheNearestSecond)
{
    constexpr double second = 1.0 / 86400;
    const struct
    {
        double value;
        const char* shown;
    } rows[] = {
        {-1.25, "1899-12-29 06:00:00 (0)"},
        {-0.25, "1899-12-30 06:00:00 (0)"},
        {-0.0, "1899-12-30 00:00:00 (0)"},
        {-0.9999999, "1899-12-31 00:00:00 (0)"},
        {0.9999999, "1899-12-31 00:00:00 (0)"},
        {-1.9999999, "1899-12-30 00:00:00 (0)"},
        {-2.9999999, "1899-12-29 00:00:00 (0)"},
        {45356 + 58.4 * second, "2024-03-05 00:00:58 (0)"},
        {45356 + 58.6 * second, "2024-03-05 00:00:59 (0)"},
        {45356 + 59.6 * second, "2024-03-05 00:01:00 (0)"},
        {45356 + 3599.9999999 * second, "2024-03-05 01:00:00 (0)"},
        {45356 + 86399.4 * second, "2024-03-05 23:59:59 (0)"},
        {45356 + 86399.6 * second, "2024-03-06 00:00:00 (0)"},
        {-657434.999, "0100-01-01 23:58:34 (0)"},
        {2958465.999, "9999-12-31 23:58:34 (0)"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Shown(Raw(row.value)), row.shown) << row.value;
}

TEST(CDateTime, AnswersMinusOneForEveryFieldThatCannotBeRead)
{
    for (const double value : unreadableValues)
        EXPECT_EQ(Shown(Raw(value)), "-1 -1 -1 -1 -1 -1 (0)") << value;
    EXPECT_EQ(Shown(Raw(45356.5, COleDateTime::invalid)), shownInvalid);
    EXPECT_EQ(Shown(Raw(45356.5, COleDateTime::null)), shownNull);
}

TEST(CDateTime, AnswersEveryQueryForValuesThatCannotBeRead)
{
    for (const double value : unreadableValues) {
        CDateTime date = Raw(value);
        EXPECT_FALSE(date.IsValid()) << value;
        EXPECT_TRUE(date.IsNull()) << value;
        EXPECT_TRUE(date.IsEmpty()) << value;
        EXPECT_FALSE(date.IsDateNull()) << value;
        EXPECT_FALSE(date.IsTimeNull()) << value;
        EXPECT_FALSE(date.IsLeapYear()) << value;
        EXPECT_EQ(date.GetDayOfWeek(), WEEKDAY_NONE) << value;
        EXPECT_EQ(date.GetDateValue(), 0u) << value;
        EXPECT_EQ(date.GetWeekNo(), -1) << value;
        EXPECT_EQ(date.GetCTime().GetTime(), 0) << value;
        EXPECT_EQ(date.GetDateOnly().GetStatus(), CDateTime::null) << value;
        EXPECT_EQ(date.GetTimeOnly().GetStatus(), CDateTime::null) << value;
        EXPECT_FALSE(date.AddDays(1)) << value;
        EXPECT_FALSE(date.AddMonths(1)) << value;
        EXPECT_FALSE(date.AddYears(1)) << value;
    }
}

TEST(CDateTime, RefusesFieldsThatDoNotComeBackUnchanged)
{
    const struct
    {
        const char* name;
        int year, month, day, hour, minute, second;
    } rows[] = {
        {"two-digit year", 24, 3, 5, 0, 0, 0},
        {"year 99", 99, 12, 31, 0, 0, 0},
        {"year 0", 0, 1, 1, 0, 0, 0},
        {"negative year", -2024, 3, 5, 0, 0, 0},
        {"year 10000", 10000, 1, 1, 0, 0, 0},
        {"year of 16 bits and more", 65536 + 2024, 3, 5, 0, 0, 0},
        {"largest year", INT_MAX, 3, 5, 0, 0, 0},
        {"smallest year", INT_MIN, 3, 5, 0, 0, 0},
        {"month 0", 2024, 0, 5, 0, 0, 0},
        {"month 13", 2024, 13, 5, 0, 0, 0},
        {"month of 16 bits and more", 2024, 65537, 5, 0, 0, 0},
        {"largest month", 2024, INT_MAX, 5, 0, 0, 0},
        {"smallest month", 2024, INT_MIN, 5, 0, 0, 0},
        {"day 0", 2024, 3, 0, 0, 0, 0},
        {"day 32", 2024, 3, 32, 0, 0, 0},
        {"31 April", 2024, 4, 31, 0, 0, 0},
        {"31 June", 2024, 6, 31, 0, 0, 0},
        {"31 September", 2024, 9, 31, 0, 0, 0},
        {"31 November", 2024, 11, 31, 0, 0, 0},
        {"30 February", 2024, 2, 30, 0, 0, 0},
        {"leap day of 2023", 2023, 2, 29, 0, 0, 0},
        {"leap day of 1900", 1900, 2, 29, 0, 0, 0},
        {"smallest day", 2024, 3, INT_MIN, 0, 0, 0},
        {"hour 24", 2024, 3, 5, 24, 0, 0},
        {"hour -1", 2024, 3, 5, -1, 0, 0},
        {"minute 60", 2024, 3, 5, 0, 60, 0},
        {"minute -1", 2024, 3, 5, 0, -1, 0},
        {"second 60", 2024, 3, 5, 0, 0, 60},
        {"second -1", 2024, 3, 5, 0, 0, -1},
        {"largest second", 2024, 3, 5, 0, 0, INT_MAX},
    };
    for (const auto& row : rows) {
        const CDateTime date(row.year, row.month, row.day, row.hour, row.minute, row.second);
        EXPECT_EQ(date.GetStatus(), CDateTime::invalid) << row.name;
        EXPECT_EQ(date.GetValue(), 0.0) << row.name;
        EXPECT_FALSE(date.IsValid()) << row.name;
        EXPECT_TRUE(date.IsNull()) << row.name;
    }
}

TEST(CDateTime, IsValidOnlyFrom1600To2999)
{
    EXPECT_FALSE(CDateTime(1599, 12, 31, 23, 59, 59).IsValid());
    EXPECT_TRUE(CDateTime(1600, 1, 1, 0, 0, 0).IsValid());
    EXPECT_TRUE(CDateTime(2999, 12, 31, 23, 59, 59).IsValid());
    EXPECT_FALSE(CDateTime(3000, 1, 1, 0, 0, 0).IsValid());
    EXPECT_EQ(CDateTime(1599, 12, 31, 0, 0, 0).GetStatus(), CDateTime::valid);
    EXPECT_EQ(CDateTime(3000, 1, 1, 0, 0, 0).GetStatus(), CDateTime::valid);
}

TEST(CDateTime, IsValidByTheSecondThatItReads)
{
    const double lastDay = CDateTime(2999, 12, 31, 0, 0, 0).GetValue();
    EXPECT_TRUE(Raw(lastDay + 86399.4 / 86400).IsValid());
    EXPECT_FALSE(Raw(lastDay + 86399.6 / 86400).IsValid());
    const double dayBefore1600 = CDateTime(1599, 12, 31, 0, 0, 0).GetValue();
    EXPECT_FALSE(Raw(dayBefore1600 - 86399.4 / 86400).IsValid());
    EXPECT_TRUE(Raw(dayBefore1600 - 86399.6 / 86400).IsValid());
}

TEST(CDateTime, IsNeitherValidNorReadableWithAnotherStatus)
{
    for (const auto status :
         {COleDateTime::invalid, COleDateTime::null, static_cast<COleDateTime::DateTimeStatus>(7)}) {
        const CDateTime date = Raw(45356.5, status);
        EXPECT_FALSE(date.IsValid()) << status;
        EXPECT_TRUE(date.IsNull()) << status;
        EXPECT_FALSE(date.IsLeapYear()) << status;
        EXPECT_EQ(date.GetDateValue(), 0u) << status;
        EXPECT_EQ(date.GetValue(), 45356.5) << status;
    }
}

TEST(CDateTime, TellsDateAndTimeParts)
{
    const struct
    {
        const char* name;
        CDateTime date;
        bool isNull, isDateNull, isTimeNull;
    } rows[] = {
        {"date and time", {2024, 3, 5, 14, 7, 9}, false, false, false},
        {"date", {2024, 3, 5, 0, 0, 0}, false, false, true},
        {"date before the epoch", {1800, 3, 5, 0, 0, 0}, false, false, true},
        {"date and time before the epoch", {1800, 3, 5, 1, 0, 0}, false, false, false},
        {"time", {1899, 12, 30, 14, 7, 9}, false, true, false},
        {"negative fraction", Raw(-0.25), false, true, false},
        {"first second of the day 1", Raw(1.0), false, false, true},
        {"day -1", Raw(-1.0), false, false, true},
        {"less than a second", Raw(1e-9), false, true, false},
        {"day 0 that reads as day 1", Raw(0.9999999), false, true, false},
        {"negative fraction that reads as day 1", Raw(-0.9999999), false, true, false},
        {"day -1 that reads as day 0", Raw(-1.9999999), false, false, false},
        {"negative zero", Raw(-0.0), true, false, false},
        {"empty date", CDateTime(), true, false, false},
        {"year below 1600", {1599, 3, 5, 0, 0, 0}, true, false, false},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.date.IsNull(), row.isNull) << row.name;
        EXPECT_EQ(row.date.IsEmpty(), row.isNull) << row.name;
        EXPECT_EQ(row.date.IsDateNull(), row.isDateNull) << row.name;
        EXPECT_EQ(row.date.IsTimeNull(), row.isTimeNull) << row.name;
    }
}

TEST(CDateTime, Kept_K52_ANullValueIsReportedAsHavingADatePart)
{
    EXPECT_FALSE(CDateTime().IsDateNull());
    EXPECT_FALSE(Raw(0.25, COleDateTime::null).IsDateNull());
    EXPECT_TRUE(Raw(0.25).IsDateNull());
}

TEST(CDateTime, KnowsLeapYearsAlsoOutsideTheValidYears)
{
    const struct
    {
        int year;
        bool isLeap;
    } rows[] = {{2024, true},  {2023, false}, {1900, false}, {2000, true}, {1600, true},  {1700, false},
                {1500, false}, {1200, true},  {104, true},   {100, false}, {3000, false}, {3200, true},
                {9996, true},  {9999, false}, {2100, false}, {2400, true}, {2025, false}, {2026, false}};
    for (const auto& row : rows)
        EXPECT_EQ(CDateTime(row.year, 1, 1, 0, 0, 0).IsLeapYear(), row.isLeap) << row.year;
    EXPECT_FALSE(CDateTime(2024, 2, 30, 0, 0, 0).IsLeapYear());
}

TEST(CDateTime, KnowsTheWeekday)
{
    EXPECT_EQ(CDateTime(2024, 3, 3, 0, 0, 0).GetDayOfWeek(), SUNDAY);
    EXPECT_EQ(CDateTime(2024, 3, 4, 0, 0, 0).GetDayOfWeek(), MONDAY);
    EXPECT_EQ(CDateTime(2024, 3, 5, 14, 7, 9).GetDayOfWeek(), TUESDAY);
    EXPECT_EQ(CDateTime(2024, 3, 6, 0, 0, 0).GetDayOfWeek(), WEDNESDAY);
    EXPECT_EQ(CDateTime(2024, 3, 7, 0, 0, 0).GetDayOfWeek(), THURSDAY);
    EXPECT_EQ(CDateTime(2024, 3, 8, 0, 0, 0).GetDayOfWeek(), FRIDAY);
    EXPECT_EQ(CDateTime(2024, 3, 9, 23, 59, 59).GetDayOfWeek(), SATURDAY);
    EXPECT_EQ(CDateTime(1899, 12, 30, 1, 0, 0).GetDayOfWeek(), SATURDAY);
    EXPECT_EQ(CDateTime(1599, 12, 31, 0, 0, 0).GetDayOfWeek(), WEEKDAY_NONE);
}

TEST(CDateTime, TakesTheDayThatItReads)
{
    const struct
    {
        double value;
        WEEKDAY day;
        unsigned int number;
    } rows[] = {{45356 + 86399.4 / 86400, TUESDAY, 20240305},
                {45356 + 86399.6 / 86400, WEDNESDAY, 20240306},
                {-1.25, FRIDAY, 18991229},
                {-1.9999999, SATURDAY, 18991230},
                {-0.25, SATURDAY, 18991230},
                {-2.9999999, FRIDAY, 18991229}};
    for (const auto& row : rows) {
        EXPECT_EQ(Raw(row.value).GetDayOfWeek(), row.day) << row.value;
        EXPECT_EQ(Raw(row.value).GetDateValue(), row.number) << row.value;
    }
}

TEST(CDateTime, GivesTheDateAsANumber)
{
    EXPECT_EQ(CDateTime(2024, 1, 31, 14, 0, 0).GetDateValue(), 20240131u);
    EXPECT_EQ(CDateTime(1600, 1, 1, 0, 0, 0).GetDateValue(), 16000101u);
    EXPECT_EQ(CDateTime(2999, 12, 31, 0, 0, 0).GetDateValue(), 29991231u);
    EXPECT_EQ(CDateTime(1899, 12, 30, 1, 0, 0).GetDateValue(), 18991230u);
    EXPECT_EQ(CDateTime(3000, 1, 1, 0, 0, 0).GetDateValue(), 0u);
}

TEST(CDateTime, KnowsTheIsoWeek)
{
    const struct
    {
        int year, month, day, week;
    } rows[] = {{2021, 1, 1, 53}, {2020, 12, 31, 53}, {2024, 12, 30, 1},  {2026, 1, 1, 1},  {2024, 3, 5, 10},
                {2023, 1, 1, 52}, {2022, 1, 1, 52},   {2024, 12, 29, 52}, {2027, 1, 3, 53}, {2027, 1, 4, 1},
                {1600, 1, 1, 52}, {2999, 12, 31, 1},  {1899, 12, 31, 52}, {1900, 1, 1, 1}};
    for (const auto& row : rows)
        EXPECT_EQ(CDateTime(row.year, row.month, row.day, 0, 0, 0).GetWeekNo(), row.week)
            << row.year << '-' << row.month << '-' << row.day;
    EXPECT_EQ(CDateTime(3000, 1, 1, 0, 0, 0).GetWeekNo(), -1);
}

TEST(CDateTime, TakesTheWeekOfTheDayThatItReads)
{
    const double sunday = CDateTime(2024, 3, 10, 0, 0, 0).GetValue();
    EXPECT_EQ(Raw(sunday + 86399.4 / 86400).GetWeekNo(), 10);
    EXPECT_EQ(Raw(sunday + 86399.6 / 86400).GetWeekNo(), 11);
}

TEST(CDateTime, SplitsIntoDateAndTime)
{
    const CDateTime date(2024, 3, 5, 14, 7, 9);
    EXPECT_EQ(Shown(date.GetDateOnly()), "2024-03-05 00:00:00 (0)");
    EXPECT_EQ(Shown(date.GetTimeOnly()), "1899-12-30 14:07:09 (0)");
    EXPECT_EQ(Shown(CDateTime(1599, 3, 5, 14, 7, 9).GetDateOnly()), "1599-03-05 00:00:00 (0)");
    EXPECT_EQ(Shown(CDateTime().GetDateOnly()), "1899-12-30 00:00:00 (0)");
}

TEST(CDateTime, IsNullWhenItCannotBeSplit)
{
    for (const CDateTime& date : {Raw(45356.5, COleDateTime::invalid), Raw(45356.5, COleDateTime::null), Raw(NAN)}) {
        EXPECT_EQ(Shown(date.GetDateOnly()), shownNull);
        EXPECT_EQ(date.GetDateOnly().GetValue(), 0.0);
        EXPECT_EQ(Shown(date.GetTimeOnly()), shownNull);
        EXPECT_EQ(date.GetTimeOnly().GetValue(), 0.0);
    }
}

TEST(CDateTime, SetNullGivesZeroAndTheStatusNull)
{
    CDateTime date(2024, 3, 5, 14, 7, 9);
    date.SetNull();
    EXPECT_EQ(date.GetValue(), 0.0);
    EXPECT_EQ(date.GetStatus(), CDateTime::null);
    EXPECT_TRUE(date.IsNull());
    EXPECT_FALSE(date.IsValid());
}

TEST(CDateTime, SetDateReplacesDateAndTime)
{
    CDateTime date(2000, 1, 1, 14, 7, 9);
    EXPECT_TRUE(date.SetDate(2024, 3, 5));
    EXPECT_EQ(Shown(date), "2024-03-05 00:00:00 (0)");
    EXPECT_FALSE(date.SetDate(2024, 2, 30));
    EXPECT_EQ(Shown(date), shownInvalid);
    EXPECT_EQ(date.GetValue(), 0.0);
    EXPECT_TRUE(date.SetDate(1500, 1, 1));
    EXPECT_FALSE(date.IsValid());
}

TEST(CDateTime, CopiesValueAndStatusUnchanged)
{
    const CDateTime source = Raw(-123.5, COleDateTime::null);
    const CDateTime copy(source);
    CDateTime assigned(2024, 3, 5, 0, 0, 0);
    assigned = source;
    for (const CDateTime& date : {copy, assigned}) {
        EXPECT_EQ(date.GetValue(), -123.5);
        EXPECT_EQ(date.GetStatus(), CDateTime::null);
    }
}

TEST(CDateTime, HasTheLayoutOfTheFrameworksDateTime)
{
    const COleDateTime ole(2024, 3, 5, 12, 0, 0);
    CDateTime date;
    std::memcpy(static_cast<void*>(&date), &ole, sizeof date);
    EXPECT_EQ(Shown(date), "2024-03-05 12:00:00 (0)");
    EXPECT_EQ(Shown(CDateTime(ole)), "2024-03-05 12:00:00 (0)");
    const CDateTime null = Raw(-123.5, COleDateTime::null);
    COleDateTime back;
    std::memcpy(static_cast<void*>(&back), &null, sizeof back);
    EXPECT_EQ(back.m_dt, -123.5);
    EXPECT_EQ(back.m_status, COleDateTime::null);
    EXPECT_EQ(Shown(CDateTime(COleDateTime(2024, 2, 30, 0, 0, 0))), shownInvalid);
}

TEST(CDateTime, TakesAVariantDateAsItIs)
{
    VARIANT variant{};
    variant.vt = VT_DATE;
    for (const double value : {45356.5, 0.0, 1e300, -700000.0}) {
        variant.date = value;
        const CDateTime date(variant);
        EXPECT_EQ(date.GetValue(), value);
        EXPECT_EQ(date.GetStatus(), CDateTime::valid);
    }
}

TEST(CDateTime, ConvertsOtherVariants)
{
    VARIANT variant{};
    variant.vt = VT_I4;
    variant.lVal = 45356;
    EXPECT_EQ(Shown(CDateTime(variant)), "2024-03-05 00:00:00 (0)");
    variant.vt = VT_EMPTY;
    EXPECT_EQ(Shown(CDateTime(variant)), "1899-12-30 00:00:00 (0)");
    for (const VARTYPE type : {VARTYPE(VT_NULL), VARTYPE(VT_ERROR), VARTYPE(9999)}) {
        variant.vt = type;
        EXPECT_EQ(Shown(CDateTime(variant)), shownInvalid) << type;
        EXPECT_EQ(CDateTime(variant).GetValue(), 0.0) << type;
    }
}

TEST(CDateTime, ConvertsVariantTexts)
{
    const Environment locale("LC_ALL", "C");
    EXPECT_EQ(Shown(CDateTime(VariantText(u"2024-03-05 14:07:09"))), "2024-03-05 14:07:09 (0)");
    for (const char16_t* const refused : {u"2024-02-30", u"45356", u"", u"\xD800"}) {
        const CDateTime date((VariantText(refused)));
        EXPECT_EQ(Shown(date), shownInvalid);
        EXPECT_EQ(date.GetValue(), 0.0);
    }
    VARIANT null{};
    null.vt = VT_BSTR;
    EXPECT_EQ(Shown(CDateTime(null)), shownInvalid);
}

TEST(CDateTime, IsInvalidForSecondsThatCannotBeBrokenDown)
{
    for (const __int64 seconds : {LLONG_MAX, LLONG_MIN, 300000000000LL, -100000000000LL}) {
        EXPECT_EQ(Shown(CDateTime(seconds)), shownInvalid) << seconds;
        EXPECT_EQ(CDateTime(seconds).GetValue(), 0.0) << seconds;
        EXPECT_EQ(Shown(CDateTime(CTime(seconds))), shownInvalid) << seconds;
    }
}

TEST(CDateTime, ReadsItsSecondsBackInAnyZone)
{
    for (const __int64 seconds : {172800LL, 1709644029LL, 1720000000LL, 2147483648LL})
        EXPECT_EQ(CDateTime(seconds).GetCTime().GetTime(), seconds);
}

TEST(CDateTime, GivesNoTimeInSecondsOutside1970To2038)
{
    const CDateTime none[] = {{1969, 12, 31, 23, 59, 59},
                              {2039, 1, 1, 0, 0, 0},
                              {1599, 1, 1, 0, 0, 0},
                              CDateTime(),
                              Raw(45356.5, COleDateTime::null)};
    for (const CDateTime& date : none) {
        EXPECT_EQ(date.GetCTime().GetTime(), 0) << Shown(date);
        EXPECT_EQ(static_cast<CTime>(date).GetTime(), 0) << Shown(date);
    }
}

} // namespace
