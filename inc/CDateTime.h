#pragma once

#include "MyDbExport.h"
#include "MyDbTypes.h"
#include "framework/COleDateTime.h"
#include "framework/CTime.h"
#include "framework/VariantName.h"
#include "text/UtCString.h"

/// A calendar date with a time of day: an OLE automation date and a status, 16 bytes in the layout of COleDateTime.
///
/// The value counts days from 1899-12-30 00:00 in its integer part; the fraction, by its absolute value, is the time of
/// day. Before the epoch the integer part is negative and the fraction still counts forward from the start of the day:
/// -1.25 is 1899-12-29 06:00. A value strictly between -1 and 0 reads as its absolute value. Values are built to the
/// whole second and read at the nearest one.
///
/// What counts as a date:
/// - 0.0 is the empty date. A new object has it, with status valid, and is null and empty.
/// - Built from calendar fields a value is `valid` when the six numbers come back from it unchanged, that is for every
///   date that exists from 0100-01-01 to 9999-12-31 and every time from 00:00:00 to 23:59:59. For other fields the
///   value is 0.0 and the status `invalid`; nothing rolls over.
/// - A time without a date lies on the day 0, 1899-12-30.
/// - `IsValid` accepts only the years 1600 to 2999. What needs a valid date asks `IsValid`, not the status alone.
///
/// No operation throws. Distinct objects may be used from any thread. "Local time" is that of CTime: of the zone in the
/// variable TZ on POSIX, of the system's zone on Windows, and what the framework makes of it where CTime is the
/// framework's.
class MYDB_EXPORT CDateTime
{
public:
    enum DateTimeStatus : int
    {
        valid = 0,
        invalid = 1, ///< the fields or the VARIANT that it was made from are no date
        null = 2     ///< set by `SetNull` or by a text that could not be read
    };

    /// Value 0.0, status valid.
    CDateTime() noexcept;
    CDateTime(const CDateTime&) noexcept = default;
    /// Takes value and status unchanged.
    CDateTime(const COleDateTime& value) noexcept;
    /// A VARIANT of type VT_DATE is taken as it is, with status valid. Any other type is converted as the platform's
    /// coercion does ("framework/Variant.h" tells); where that fails, value 0.0 with status invalid.
    CDateTime(const VARIANT& value) noexcept;
    /// The local time of a time, built from its fields. Status invalid where the system cannot break it down.
    CDateTime(const CTime& time) noexcept;
    /// As for CTime; the argument is seconds since 1970-01-01 UTC.
    CDateTime(__int64 secondsSince1970) noexcept;
    /// Status invalid, with value 0.0, unless the date exists and its year is 100 to 9999.
    CDateTime(int year, int month, int day, int hour, int minute, int second) noexcept;
    CDateTime& operator=(const CDateTime&) noexcept = default;

    /// The OLE automation date, whatever the status.
    double GetValue() const noexcept;
    DateTimeStatus GetStatus() const noexcept;

    // The calendar fields at the nearest second. -1 when the status is not valid or the value lies outside the years
    // 100 to 9999. The empty date reads as 1899-12-30 00:00:00.
    int GetYear() const noexcept;
    int GetMonth() const noexcept;
    int GetDay() const noexcept;
    int GetHour() const noexcept;
    int GetMinute() const noexcept;
    int GetSecond() const noexcept;

    /// True for a status valid and a year from 1600 to 2999; so true for the empty date of a new object.
    bool IsValid() const noexcept;
    /// True for the value 0.0, which may be `IsValid` all the same, and for everything that is not `IsValid`.
    bool IsNull() const noexcept;
    /// The same as `IsNull`.
    bool IsEmpty() const noexcept;
    /// True for a time without a date: a valid value on the day 0. False, on purpose, when `IsNull`.
    bool IsDateNull() const noexcept;
    /// True for a date without a time: a valid value of exactly midnight. False, too, when `IsNull`.
    bool IsTimeNull() const noexcept;
    /// True in a leap year from 100 to 9999; false when the fields cannot be read.
    bool IsLeapYear() const noexcept;
    /// WEEKDAY_NONE (-1) when `IsNull`.
    WEEKDAY GetDayOfWeek() const noexcept;
    /// year * 10000 + month * 100 + day: 20240131 for 31 January 2024. 0 when `IsNull`.
    unsigned int GetDateValue() const noexcept;
    /// The ISO 8601 week, 1 to 53: weeks start on Monday, week 1 holds the year's first Thursday, so the first days of
    /// January may lie in week 52 or 53 and the last of December in week 1. -1 when `IsNull`.
    int GetWeekNo() const noexcept;
    /// The date at midnight; value 0.0 with status null when the fields cannot be read.
    CDateTime GetDateOnly() const noexcept;
    /// The time on the day 0; value 0.0 with status null when the fields cannot be read.
    CDateTime GetTimeOnly() const noexcept;
    /// The time, the value being local time; the system decides about daylight saving. CTime(0) when `IsNull` and
    /// outside the years 1970 to 2038.
    CTime GetCTime() const noexcept;
    operator CTime() const noexcept;

    /// The value as text in one of these forms, shown for 2024-03-05 14:07:09 (the blanks are part of the form):
    ///
    ///     1  05.03.2024                 5  05.03.2024  14:07:09      9  2024-03-05 14:07:09
    ///     2  05.03.24  14:07            6  20240305                 10  14:07:09
    ///     3  05.03.24  14:07:09         7  #2024/03/05#             11  2024-03-05
    ///     4  05.03.2024  14:07          8  '2024-03-05'             12  14:07
    ///
    /// 0 and every number above 12: the short date of the user's locale (off Windows: LC_TIME of the environment). When
    /// `IsNull`, 8 gives '0000-00-00' with its quotes and every other number the empty text. Encoding 256; empty also
    /// without memory.
    UtCString GetDate(unsigned int selector) const;

    /// Value 0.0, status null.
    void SetNull() noexcept;
    /// Sets the date with the time 00:00:00. False, with value 0.0 and status invalid, when it does not exist.
    bool SetDate(int year, int month, int day) noexcept;
    /// Reads day, month and year, in this order whatever separates them: "5.3.2024", "5/3/24", "5-3-2024".
    ///
    /// Digits form numbers and every other character ends one, blanks too: "1. 2. 2003" has an empty second number and
    /// is refused. Numbers behind the third are ignored. A year below 1000 is completed: below 70 it gains 2000, else
    /// 1900; a missing one is 2000. Accepted are 1980-01-01 to 2038-01-18, the days of 32-bit time. False, with value
    /// 0.0 and status null, for a text without ".", "/" and "-", and for numbers out of these ranges. True for
    /// everything else, also when the month has no such day ("31.02.2020"): then the value is 0.0 and the status
    /// invalid, so ask `IsValid` afterwards.
    bool SetDate(const UtCString& text);
    /// Reads year, month and day as 8 digits, or with hour, minute and second as 14, after every blank, ".", ":", "-"
    /// and "/" was left out: "20240305", "2024-03-05 14:07:09". False, with value 0.0 and status null, for every other
    /// number of characters, for one that is no digit, and for a date that does not exist.
    bool ConvertDate(const UtCString& text);
    /// Reads a date, a time or both in the form of the user's locale. `flags` are the platform's: 0x1 a time only, 0x2
    /// a date only, 0x80000000 without the user's changes to the locale, 0 all forms. "platform/LocaleDate.h" tells
    /// what is accepted off Windows. White space at the end does not count. A text of white space alone, and every text
    /// that cannot be read, gives value 0.0 with status null.
    static CDateTime ParseDate(const UtCString& text, unsigned long flags = 0);

    // The current local time, to the whole second. Status invalid where the system cannot tell it.
    void SetCurrentDate() noexcept; ///< today, 00:00:00
    void SetCurrentTime() noexcept; ///< the time of day on the day 0
    void SetCurrentDateTime() noexcept;
    void SetTimeStamp() noexcept; ///< the same as `SetCurrentDateTime`
    static CDateTime GetCurrentDate() noexcept;
    static CDateTime GetCurrentClock() noexcept; ///< the time of day on the day 0
    /// The current date and time, despite its name: no tick count.
    static CDateTime GetTickCount() noexcept;

    /// Adds days; the time of day stays. False, and nothing changes, when `IsNull`. True otherwise, also when the
    /// result lies outside the years 1600 to 2999 and is no longer `IsValid`.
    bool AddDays(int days) noexcept;
    /// Adds months (a negative number goes back); the time of day stays. The day becomes `dayOfMonth` when that is 1 to
    /// 31; a day above 28 that the month does not have becomes its last one: 31 January plus one month is 28 or 29
    /// February, and AddMonths(1, 31) gives the last day of the next month. Months are counted without overflow. With 0
    /// months nothing changes, `dayOfMonth` included, and the result is true. False, and nothing changes, when `IsNull`
    /// and when the result lies outside the years 100 to 9999.
    bool AddMonths(int months, int dayOfMonth = 0) noexcept;
    /// The same for years, in the same month.
    bool AddYears(int years, int dayOfMonth = 0) noexcept;

protected:
    /// The short date of the user's locale, at most 77 bytes. Empty when `IsNull` and when the platform has no such
    /// form.
    UtCString DateToStr() const;

private:
    double m_value;
    int m_status;
};
