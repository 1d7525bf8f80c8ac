#pragma once

#if defined(MYDB_WITH_MFC)
#include "framework/Mfc.h"
#else

#include "MyDbExport.h"
#include "framework/CTime.h"
#include "framework/VariantName.h"

/// The framework's date-time value: an OLE automation date and a status, 16 bytes. See CDateTime for the value.
class MYDB_EXPORT COleDateTime
{
public:
    enum DateTimeStatus : int
    {
        valid = 0,
        invalid = 1,
        null = 2
    };

    /// 1899-12-30 00:00:00, valid.
    COleDateTime() noexcept = default;
    /// Takes the value as it is; valid when it lies in the years 100 to 9999.
    COleDateTime(DATE value) noexcept;
    /// Converts as `framework::VariantToOleDate`: value 0.0 and null for VT_EMPTY and VT_NULL, invalid where that
    /// fails.
    COleDateTime(const VARIANT& value) noexcept;
    /// The local time of a time; value 0.0 and invalid where the system cannot break it down.
    COleDateTime(const CTime& time) noexcept;
    COleDateTime(__int64 secondsSince1970) noexcept;
    /// Valid for a date from year 100 to 9999 that exists and a time of day; otherwise value 0.0 and invalid.
    COleDateTime(int year, int month, int day, int hour, int minute, int second) noexcept;

    operator DATE() const noexcept { return m_dt; }
    DateTimeStatus GetStatus() const noexcept { return m_status; }
    void SetStatus(DateTimeStatus status) noexcept { m_status = status; }

    // The fields, at the nearest second; -1 unless the status is valid and the value lies in the years 100 to 9999.
    int GetYear() const noexcept;
    int GetMonth() const noexcept;
    int GetDay() const noexcept;
    int GetHour() const noexcept;
    int GetMinute() const noexcept;
    int GetSecond() const noexcept;

    DATE m_dt = 0;
    DateTimeStatus m_status = valid;
};

#endif
