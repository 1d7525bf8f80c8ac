#include "CDateTime.h"

#include "Shape.h"

#include <cstddef>
#include <initializer_list>
#include <string_view>
#include <type_traits>

// CDateTime crosses the interface by value: eight bytes of OLE automation date, then the status.
static_assert(sizeof(CDateTime) == 16 && alignof(CDateTime) == 8);
static_assert(std::is_standard_layout_v<CDateTime>);
static_assert(std::is_trivially_copyable_v<CDateTime>);
static_assert(CDateTime::valid == 0 && CDateTime::invalid == 1 && CDateTime::null == 2);
static_assert(sizeof(COleDateTime) == 16 && std::is_standard_layout_v<COleDateTime>);
static_assert(sizeof(VARIANT) == 16 && offsetof(VARIANT, date) == 8);

// CDateTime
static_assert(std::is_constructible_v<CDateTime>);
static_assert(std::is_constructible_v<CDateTime, const CDateTime&>);
static_assert(std::is_constructible_v<CDateTime, const COleDateTime&>);
static_assert(std::is_constructible_v<CDateTime, const VARIANT&>);
static_assert(std::is_constructible_v<CDateTime, const CTime&>);
static_assert(std::is_constructible_v<CDateTime, __int64>);
static_assert(std::is_constructible_v<CDateTime, int, int, int, int, int, int>);
static_assert(Has<CDateTime& (CDateTime::*)(const CDateTime&)>(&CDateTime::operator=));
static_assert(Has<double (CDateTime::*)() const>(&CDateTime::GetValue));
static_assert(Has<CDateTime::DateTimeStatus (CDateTime::*)() const>(&CDateTime::GetStatus));
static_assert(Has<int (CDateTime::*)() const>(&CDateTime::GetYear));
static_assert(Has<int (CDateTime::*)() const>(&CDateTime::GetMonth));
static_assert(Has<int (CDateTime::*)() const>(&CDateTime::GetDay));
static_assert(Has<int (CDateTime::*)() const>(&CDateTime::GetHour));
static_assert(Has<int (CDateTime::*)() const>(&CDateTime::GetMinute));
static_assert(Has<int (CDateTime::*)() const>(&CDateTime::GetSecond));
static_assert(Has<bool (CDateTime::*)() const>(&CDateTime::IsValid));
static_assert(Has<bool (CDateTime::*)() const>(&CDateTime::IsNull));
static_assert(Has<bool (CDateTime::*)() const>(&CDateTime::IsEmpty));
static_assert(Has<bool (CDateTime::*)() const>(&CDateTime::IsDateNull));
static_assert(Has<bool (CDateTime::*)() const>(&CDateTime::IsTimeNull));
static_assert(Has<bool (CDateTime::*)() const>(&CDateTime::IsLeapYear));
static_assert(Has<WEEKDAY (CDateTime::*)() const>(&CDateTime::GetDayOfWeek));
static_assert(Has<unsigned int (CDateTime::*)() const>(&CDateTime::GetDateValue));
static_assert(Has<int (CDateTime::*)() const>(&CDateTime::GetWeekNo));
static_assert(Has<CDateTime (CDateTime::*)() const>(&CDateTime::GetDateOnly));
static_assert(Has<CDateTime (CDateTime::*)() const>(&CDateTime::GetTimeOnly));
static_assert(Has<CTime (CDateTime::*)() const>(&CDateTime::GetCTime));
static_assert(Has<CTime (CDateTime::*)() const>(&CDateTime::operator CTime));
static_assert(Has<UtCString (CDateTime::*)(unsigned int) const>(&CDateTime::GetDate));
static_assert(Has<void (CDateTime::*)()>(&CDateTime::SetNull));
static_assert(Has<bool (CDateTime::*)(int, int, int)>(&CDateTime::SetDate));
static_assert(Has<bool (CDateTime::*)(const UtCString&)>(&CDateTime::SetDate));
static_assert(Has<bool (CDateTime::*)(const UtCString&)>(&CDateTime::ConvertDate));
static_assert(Has<CDateTime (*)(const UtCString&, unsigned long)>(&CDateTime::ParseDate));
static_assert(Has<void (CDateTime::*)()>(&CDateTime::SetCurrentDate));
static_assert(Has<void (CDateTime::*)()>(&CDateTime::SetCurrentTime));
static_assert(Has<void (CDateTime::*)()>(&CDateTime::SetCurrentDateTime));
static_assert(Has<void (CDateTime::*)()>(&CDateTime::SetTimeStamp));
static_assert(Has<CDateTime (*)()>(&CDateTime::GetCurrentDate));
static_assert(Has<CDateTime (*)()>(&CDateTime::GetCurrentClock));
static_assert(Has<CDateTime (*)()>(&CDateTime::GetTickCount));
static_assert(Has<bool (CDateTime::*)(int)>(&CDateTime::AddDays));
static_assert(Has<bool (CDateTime::*)(int, int)>(&CDateTime::AddMonths));
static_assert(Has<bool (CDateTime::*)(int, int)>(&CDateTime::AddYears));

// CTime
static_assert(std::is_constructible_v<CTime>);
static_assert(std::is_constructible_v<CTime, __int64>);
static_assert(std::is_constructible_v<CTime, int, int, int, int, int, int, int>);
static_assert(Has<CTime (*)()>(&CTime::GetCurrentTime));
static_assert(Has<__int64 (CTime::*)() const>(&CTime::GetTime));
static_assert(Has<int (CTime::*)() const>(&CTime::GetYear));
static_assert(Has<int (CTime::*)() const>(&CTime::GetMonth));
static_assert(Has<int (CTime::*)() const>(&CTime::GetDay));
static_assert(Has<int (CTime::*)() const>(&CTime::GetHour));
static_assert(Has<int (CTime::*)() const>(&CTime::GetMinute));
static_assert(Has<int (CTime::*)() const>(&CTime::GetSecond));

// COleDateTime
static_assert(std::is_constructible_v<COleDateTime>);
static_assert(std::is_constructible_v<COleDateTime, DATE>);
static_assert(std::is_constructible_v<COleDateTime, const VARIANT&>);
static_assert(std::is_constructible_v<COleDateTime, const CTime&>);
static_assert(std::is_constructible_v<COleDateTime, __int64>);
static_assert(std::is_constructible_v<COleDateTime, int, int, int, int, int, int>);
static_assert(Has<DATE (COleDateTime::*)() const>(&COleDateTime::operator DATE));
static_assert(Has<COleDateTime::DateTimeStatus (COleDateTime::*)() const>(&COleDateTime::GetStatus));
static_assert(Has<void (COleDateTime::*)(COleDateTime::DateTimeStatus)>(&COleDateTime::SetStatus));
static_assert(Has<int (COleDateTime::*)() const>(&COleDateTime::GetYear));
static_assert(Has<int (COleDateTime::*)() const>(&COleDateTime::GetMonth));
static_assert(Has<int (COleDateTime::*)() const>(&COleDateTime::GetDay));
static_assert(Has<int (COleDateTime::*)() const>(&COleDateTime::GetHour));
static_assert(Has<int (COleDateTime::*)() const>(&COleDateTime::GetMinute));
static_assert(Has<int (COleDateTime::*)() const>(&COleDateTime::GetSecond));
