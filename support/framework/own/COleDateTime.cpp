#include "framework/COleDateTime.h"

#include "framework/OleDate.h"
#include "framework/Variant.h"
#include "framework/VariantDate.h"
#include "platform/LocalTime.h"

static_assert(sizeof(COleDateTime) == 16);

namespace {

platform::CalendarFields FieldsOf(const COleDateTime& value)
{
    platform::CalendarFields fields = {-1, -1, -1, -1, -1, -1};
    if (value.m_status == COleDateTime::valid)
        framework::FieldsFromOleDate(value.m_dt, fields);
    return fields;
}

} // namespace

COleDateTime::COleDateTime(DATE value) noexcept : m_dt(value)
{
    framework::DayAndSecond ignored;
    m_status = framework::SplitOleDate(value, ignored) ? valid : invalid;
}

COleDateTime::COleDateTime(const VARIANT& value) noexcept
{
    if (value.vt == VT_EMPTY || value.vt == VT_NULL)
        m_status = null;
    else if (!framework::VariantToOleDate(value, m_dt))
        m_status = invalid;
}

COleDateTime::COleDateTime(const CTime& time) noexcept : COleDateTime(time.GetTime()) {}

COleDateTime::COleDateTime(__int64 secondsSince1970) noexcept
{
    platform::CalendarFields local{};
    const bool isBuilt =
        platform::LocalTimeFromSeconds(secondsSince1970, local) && framework::OleDateFromFields(local, m_dt);
    m_status = isBuilt ? valid : invalid;
}

COleDateTime::COleDateTime(int year, int month, int day, int hour, int minute, int second) noexcept
{
    const bool isBuilt = framework::OleDateFromFields({year, month, day, hour, minute, second}, m_dt);
    m_status = isBuilt ? valid : invalid;
}

int COleDateTime::GetYear() const noexcept
{
    return FieldsOf(*this).year;
}

int COleDateTime::GetMonth() const noexcept
{
    return FieldsOf(*this).month;
}

int COleDateTime::GetDay() const noexcept
{
    return FieldsOf(*this).day;
}

int COleDateTime::GetHour() const noexcept
{
    return FieldsOf(*this).hour;
}

int COleDateTime::GetMinute() const noexcept
{
    return FieldsOf(*this).minute;
}

int COleDateTime::GetSecond() const noexcept
{
    return FieldsOf(*this).second;
}
