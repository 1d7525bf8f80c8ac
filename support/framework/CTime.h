#pragma once

#if defined(MYDB_WITH_MFC)
#include "framework/Mfc.h"
#else

#include "MyDbExport.h"

#include <compare>

#ifndef _MSC_VER
#ifndef __int64
#define __int64 long long
#endif
#endif

// <windows.h> has a macro that makes GetTickCount of the name GetCurrentTime. It is put aside here, and on Windows the
// member answers to that name too, so that a host may include <windows.h> before or behind this header.
#pragma push_macro("GetCurrentTime")
#undef GetCurrentTime

/// The framework's point in time: whole seconds since 1970-01-01 00:00:00 UTC. Its calendar fields are those of the
/// local time zone of the process. An object of 8 bytes; any value is allowed.
class MYDB_EXPORT CTime
{
public:
    /// 0, the start of 1970 UTC.
    CTime() noexcept = default;
    CTime(__int64 secondsSince1970) noexcept : m_seconds(secondsSince1970) {}
    /// A local time. `daylightSaving`: above 0 it is in effect, 0 it is not, below 0 the system decides. Fields out of
    /// their range carry over into the next larger one. -1 seconds where the system cannot represent the time.
    CTime(int year, int month, int day, int hour, int minute, int second, int daylightSaving = -1) noexcept;

    static CTime GetCurrentTime() noexcept; ///< Now.
#if defined(_WIN32)
    static CTime GetTickCount() noexcept
    {
        return GetCurrentTime();
    }
#endif

    __int64 GetTime() const noexcept
    {
        return m_seconds;
    }

    // The fields of the local time; 0 where the system cannot break the time down.
    int GetYear() const noexcept;
    int GetMonth() const noexcept; ///< 1 to 12
    int GetDay() const noexcept;   ///< 1 to 31
    int GetHour() const noexcept;
    int GetMinute() const noexcept;
    int GetSecond() const noexcept;

    auto operator<=>(const CTime&) const noexcept = default;

private:
    __int64 m_seconds = 0;
};

#pragma pop_macro("GetCurrentTime")

#endif
