#pragma once

#include "CDateTime.h"
#include "unit/Environment.h"

#include <gtest/gtest.h>

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

inline std::string Text(const UtCString& text)
{
    return std::string(text.View());
}

inline UtCString Ansi(std::string_view bytes)
{
    return UtCString(bytes, UT_ENCODING_DEFAULT);
}

/// A text, the flags that ParseDate gets with it, and what it makes of them.
struct ParsedText
{
    std::string_view text;
    unsigned long flags;
    std::string shown;
};

inline void ExpectParsed(const ParsedText& row)
{
    const CDateTime date = CDateTime::ParseDate(Ansi(row.text), row.flags);
    EXPECT_EQ(Shown(date), row.shown) << row.text << " with " << row.flags;
    EXPECT_TRUE(date.GetStatus() == CDateTime::valid || date.GetValue() == 0) << row.text;
}
