#pragma once

#include "MyDbExport.h"
#include "MyDbTypes.h"
#include "text/UtCString.h"

class COleDateTime;
class CTime;
struct tagVARIANT;

class MYDB_EXPORT CDateTime
{
public:
    enum DateTimeStatus : int { valid = 0, invalid = 1, null = 2 };

    CDateTime() noexcept;
    CDateTime(const CDateTime&) noexcept = default;
    CDateTime(const COleDateTime& value) noexcept;
    CDateTime(const tagVARIANT& value) noexcept;
    CDateTime(const CTime& time) noexcept;
    CDateTime(__int64 secondsSince1970) noexcept;
    CDateTime(int year, int month, int day, int hour, int minute, int second) noexcept;
    CDateTime& operator=(const CDateTime&) noexcept = default;

    double GetValue() const noexcept;
    DateTimeStatus GetStatus() const noexcept;
    int GetYear() const noexcept;
    int GetMonth() const noexcept;
    int GetDay() const noexcept;
    int GetHour() const noexcept;
    int GetMinute() const noexcept;
    int GetSecond() const noexcept;

    bool IsValid() const noexcept;
    bool IsNull() const noexcept;
    bool IsEmpty() const noexcept;
    bool IsDateNull() const noexcept;
    bool IsTimeNull() const noexcept;
    bool IsLeapYear() const noexcept;
    WEEKDAY GetDayOfWeek() const noexcept;
    unsigned int GetDateValue() const noexcept;
    int GetWeekNo() const noexcept;
    CDateTime GetDateOnly() const noexcept;
    CDateTime GetTimeOnly() const noexcept;
    CTime GetCTime() const noexcept;
    operator CTime() const noexcept;
    UtCString GetDate(unsigned int selector) const;

    void SetNull() noexcept;
    bool SetDate(int year, int month, int day) noexcept;
    bool SetDate(const UtCString& text);
    bool ConvertDate(const UtCString& text);
    static CDateTime ParseDate(const UtCString& text, unsigned long flags = 0);
    void SetCurrentDate() noexcept;
    void SetCurrentTime() noexcept;
    void SetCurrentDateTime() noexcept;
    void SetTimeStamp() noexcept;
    static CDateTime GetCurrentDate() noexcept;
    static CDateTime GetCurrentClock() noexcept;
    static CDateTime GetTickCount() noexcept;
    bool AddDays(int days) noexcept;
    bool AddMonths(int months, int dayOfMonth = 0) noexcept;
    bool AddYears(int years, int dayOfMonth = 0) noexcept;

protected:
    UtCString DateToStr() const;

private:
    double m_value;
    int m_status;
};
