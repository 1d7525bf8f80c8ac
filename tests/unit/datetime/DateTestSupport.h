#pragma once

#include "CDateTime.h"
#include "unit/Environment.h"

#include <cstdio>
#include <ctime>
#include <string>
#include <string_view>

/// A value as it may arrive from a host, with any double and status.
inline CDateTime Raw(double value, COleDateTime::DateTimeStatus status = COleDateTime::valid)
{
    COleDateTime ole;
    ole.m_dt = value;
    ole.m_status = status;
    return CDateTime(ole);
}

/// "2024-03-05 14:07:09 (0)": the fields and the status.
inline std::string Shown(const CDateTime& date)
{
    char text[128];
    const char* const format = date.GetYear() < 0 ? "%d %d %d %d %d %d (%d)" : "%04d-%02d-%02d %02d:%02d:%02d (%d)";
    std::snprintf(text, sizeof text, format, date.GetYear(), date.GetMonth(), date.GetDay(), date.GetHour(),
                  date.GetMinute(), date.GetSecond(), static_cast<int>(date.GetStatus()));
    return text;
}

inline const std::string shownNull = "-1 -1 -1 -1 -1 -1 (2)";
inline const std::string shownInvalid = "-1 -1 -1 -1 -1 -1 (1)";

/// Central European time by rule, so that the test needs no time zone files.
inline std::string Text(const UtCString& text)
{
    return std::string(text.View());
}

inline UtCString Ansi(std::string_view bytes)
{
    return UtCString(bytes, UT_ENCODING_DEFAULT);
}
