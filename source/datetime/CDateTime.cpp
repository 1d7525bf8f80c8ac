#include "CDateTime.h"

#include "datetime/WeekNumber.h"
#include "framework/LocalTime.h"
#include "framework/OleDate.h"
#include "framework/VariantDate.h"

#include <cmath>
#include <cstddef>

namespace {

using platform::CalendarFields;

constexpr int firstValidDay = framework::DayNumber(1600, 1, 1);
constexpr int lastValidDay = framework::DayNumber(2999, 12, 31);

CalendarFields FieldsOf(const CDateTime& date)
{
    CalendarFields fields = {-1, -1, -1, -1, -1, -1};
    if (date.GetStatus() == CDateTime::valid)
        framework::FieldsFromOleDate(date.GetValue(), fields);
    return fields;
}

CDateTime NullUnlessValid(CDateTime date)
{
    if (date.GetStatus() != CDateTime::valid)
        date.SetNull();
    return date;
}

} // namespace

static_assert(sizeof(CDateTime) == sizeof(COleDateTime) && alignof(CDateTime) == alignof(COleDateTime));

CDateTime::CDateTime() noexcept : m_value(0), m_status(valid) {}

CDateTime::CDateTime(const COleDateTime& value) noexcept : m_value(value.m_dt), m_status(value.m_status) {}

CDateTime::CDateTime(const VARIANT& value) noexcept : CDateTime()
{
    if (!framework::VariantToOleDate(value, m_value))
        m_status = invalid;
}

// The fields are those that the CTime shows, whoever knows its zone.
CDateTime::CDateTime(const CTime& time) noexcept : CDateTime()
{
    CalendarFields local;
    if (!framework::LocalFieldsOf(time, local) || !framework::OleDateFromFields(local, m_value))
        m_status = invalid;
}

CDateTime::CDateTime(__int64 secondsSince1970) noexcept : CDateTime(CTime(secondsSince1970)) {}

// Every row of a scan comes through here: the fields that OleDateFromFields accepts are known to come back unchanged,
// and the members are set without a call.
CDateTime::CDateTime(int year, int month, int day, int hour, int minute, int second) noexcept
    : m_value(0), m_status(valid)
{
    if (!framework::OleDateFromFields({year, month, day, hour, minute, second}, m_value))
        m_status = invalid;
}

double CDateTime::GetValue() const noexcept
{
    return m_value;
}

CDateTime::DateTimeStatus CDateTime::GetStatus() const noexcept
{
    return static_cast<DateTimeStatus>(m_status);
}

int CDateTime::GetYear() const noexcept
{
    return FieldsOf(*this).year;
}

int CDateTime::GetMonth() const noexcept
{
    return FieldsOf(*this).month;
}

int CDateTime::GetDay() const noexcept
{
    return FieldsOf(*this).day;
}

int CDateTime::GetHour() const noexcept
{
    return FieldsOf(*this).hour;
}

int CDateTime::GetMinute() const noexcept
{
    return FieldsOf(*this).minute;
}

int CDateTime::GetSecond() const noexcept
{
    return FieldsOf(*this).second;
}

bool CDateTime::IsValid() const noexcept
{
    framework::DayAndSecond split;
    return m_status == valid && framework::SplitOleDate(m_value, split) && split.day >= firstValidDay &&
           split.day <= lastValidDay;
}

// KEPT K-59: the empty date of a new object is valid and null at once.
bool CDateTime::IsNull() const noexcept
{
    return m_value == 0 || !IsValid();
}

bool CDateTime::IsEmpty() const noexcept
{
    return IsNull();
}

// KEPT K-52: a null value is reported as having a date part.
bool CDateTime::IsDateNull() const noexcept
{
    return !IsNull() && std::trunc(m_value) == 0;
}

bool CDateTime::IsTimeNull() const noexcept
{
    return !IsNull() && std::trunc(m_value) == m_value;
}

bool CDateTime::IsLeapYear() const noexcept
{
    return platform::IsLeapYear(GetYear()); // -1, a year that cannot be read, is none
}

WEEKDAY CDateTime::GetDayOfWeek() const noexcept
{
    framework::DayAndSecond split;
    if (IsNull() || !framework::SplitOleDate(m_value, split))
        return WEEKDAY_NONE;
    return static_cast<WEEKDAY>(framework::DayOfWeek(split.day));
}

unsigned int CDateTime::GetDateValue() const noexcept
{
    if (IsNull())
        return 0;
    const CalendarFields fields = FieldsOf(*this);
    return static_cast<unsigned int>(fields.year * 10000 + fields.month * 100 + fields.day);
}

int CDateTime::GetWeekNo() const noexcept
{
    framework::DayAndSecond split;
    if (IsNull() || !framework::SplitOleDate(m_value, split))
        return -1;
    return datetime::IsoWeek(split.day, GetYear());
}

CDateTime CDateTime::GetDateOnly() const noexcept
{
    const CalendarFields fields = FieldsOf(*this);
    return NullUnlessValid(CDateTime(fields.year, fields.month, fields.day, 0, 0, 0));
}

CDateTime CDateTime::GetTimeOnly() const noexcept
{
    const CalendarFields fields = FieldsOf(*this);
    return NullUnlessValid(CDateTime(1899, 12, 30, fields.hour, fields.minute, fields.second));
}

CTime CDateTime::GetCTime() const noexcept
{
    const CalendarFields fields = FieldsOf(*this);
    if (IsNull() || fields.year < 1970 || fields.year > 2038)
        return CTime(0);
    return framework::TimeOfLocalFields(fields);
}

CDateTime::operator CTime() const noexcept
{
    return GetCTime();
}

void CDateTime::SetNull() noexcept
{
    m_value = 0;
    m_status = null;
}

bool CDateTime::SetDate(int year, int month, int day) noexcept
{
    *this = CDateTime(year, month, day, 0, 0, 0);
    return m_status == valid;
}
