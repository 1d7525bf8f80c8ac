#include "CDateTime.h"

#include "platform/LocalTime.h"

namespace {

CDateTime Now()
{
    return CDateTime(static_cast<__int64>(platform::CurrentTime()));
}

} // namespace

void CDateTime::SetCurrentDate() noexcept
{
    const CDateTime now = Now();
    SetDate(now.GetYear(), now.GetMonth(), now.GetDay());
}

void CDateTime::SetCurrentTime() noexcept
{
    const CDateTime now = Now();
    *this = CDateTime(1899, 12, 30, now.GetHour(), now.GetMinute(), now.GetSecond());
}

void CDateTime::SetCurrentDateTime() noexcept
{
    *this = Now();
}

void CDateTime::SetTimeStamp() noexcept
{
    SetCurrentDateTime();
}

CDateTime CDateTime::GetCurrentDate() noexcept
{
    CDateTime date;
    date.SetCurrentDate();
    return date;
}

CDateTime CDateTime::GetCurrentClock() noexcept
{
    CDateTime time;
    time.SetCurrentTime();
    return time;
}

// KEPT K-53: the current date and time, not a tick count.
CDateTime CDateTime::GetTickCount() noexcept
{
    return Now();
}
