#include "framework/CTime.h"

#include "platform/LocalTime.h"

namespace {

platform::DaylightSaving DaylightSavingOf(int framework)
{
    if (framework < 0)
        return platform::DaylightSaving::decidedBySystem;
    return framework > 0 ? platform::DaylightSaving::on : platform::DaylightSaving::off;
}

platform::CalendarFields FieldsOf(__int64 seconds)
{
    platform::CalendarFields fields{};
    platform::LocalTimeFromSeconds(seconds, fields);
    return fields;
}

} // namespace

CTime::CTime(int year, int month, int day, int hour, int minute, int second, int daylightSaving) noexcept
    : m_seconds(
          platform::SecondsFromLocalTime({year, month, day, hour, minute, second}, DaylightSavingOf(daylightSaving)))
{
}

CTime CTime::GetCurrentTime() noexcept
{
    return CTime(platform::CurrentTime());
}

int CTime::GetYear() const noexcept
{
    return FieldsOf(m_seconds).year;
}

int CTime::GetMonth() const noexcept
{
    return FieldsOf(m_seconds).month;
}

int CTime::GetDay() const noexcept
{
    return FieldsOf(m_seconds).day;
}

int CTime::GetHour() const noexcept
{
    return FieldsOf(m_seconds).hour;
}

int CTime::GetMinute() const noexcept
{
    return FieldsOf(m_seconds).minute;
}

int CTime::GetSecond() const noexcept
{
    return FieldsOf(m_seconds).second;
}
