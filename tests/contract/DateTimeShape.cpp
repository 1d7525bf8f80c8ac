#include "CDateTime.h"
#include "framework/Variant.h"

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
static_assert(offsetof(VARIANT, date) == 8);

// CDateTime
static_assert(std::is_constructible_v<CDateTime>);
static_assert(std::is_constructible_v<CDateTime, const CDateTime&>);
static_assert(std::is_constructible_v<CDateTime, const COleDateTime&>);
static_assert(std::is_constructible_v<CDateTime, const VARIANT&>);
static_assert(std::is_constructible_v<CDateTime, const CTime&>);
static_assert(std::is_constructible_v<CDateTime, __int64>);
static_assert(std::is_constructible_v<CDateTime, int, int, int, int, int, int>);
EXPORTED(Has<CDateTime& (CDateTime::*)(const CDateTime&)>(&CDateTime::operator=));
EXPORTED(Has<double (CDateTime::*)() const>(&CDateTime::GetValue));
EXPORTED(Has<CDateTime::DateTimeStatus (CDateTime::*)() const>(&CDateTime::GetStatus));
EXPORTED(Has<int (CDateTime::*)() const>(&CDateTime::GetYear));
EXPORTED(Has<int (CDateTime::*)() const>(&CDateTime::GetMonth));
EXPORTED(Has<int (CDateTime::*)() const>(&CDateTime::GetDay));
EXPORTED(Has<int (CDateTime::*)() const>(&CDateTime::GetHour));
EXPORTED(Has<int (CDateTime::*)() const>(&CDateTime::GetMinute));
EXPORTED(Has<int (CDateTime::*)() const>(&CDateTime::GetSecond));
EXPORTED(Has<bool (CDateTime::*)() const>(&CDateTime::IsValid));
EXPORTED(Has<bool (CDateTime::*)() const>(&CDateTime::IsNull));
EXPORTED(Has<bool (CDateTime::*)() const>(&CDateTime::IsEmpty));
EXPORTED(Has<bool (CDateTime::*)() const>(&CDateTime::IsDateNull));
EXPORTED(Has<bool (CDateTime::*)() const>(&CDateTime::IsTimeNull));
EXPORTED(Has<bool (CDateTime::*)() const>(&CDateTime::IsLeapYear));
EXPORTED(Has<WEEKDAY (CDateTime::*)() const>(&CDateTime::GetDayOfWeek));
EXPORTED(Has<unsigned int (CDateTime::*)() const>(&CDateTime::GetDateValue));
EXPORTED(Has<int (CDateTime::*)() const>(&CDateTime::GetWeekNo));
EXPORTED(Has<CDateTime (CDateTime::*)() const>(&CDateTime::GetDateOnly));
EXPORTED(Has<CDateTime (CDateTime::*)() const>(&CDateTime::GetTimeOnly));
EXPORTED(Has<CTime (CDateTime::*)() const>(&CDateTime::GetCTime));
EXPORTED(Has<CTime (CDateTime::*)() const>(&CDateTime::operator CTime));
EXPORTED(Has<UtCString (CDateTime::*)(unsigned int) const>(&CDateTime::GetDate));
EXPORTED(Has<void (CDateTime::*)()>(&CDateTime::SetNull));
EXPORTED(Has<bool (CDateTime::*)(int, int, int)>(&CDateTime::SetDate));
EXPORTED(Has<bool (CDateTime::*)(const UtCString&)>(&CDateTime::SetDate));
EXPORTED(Has<bool (CDateTime::*)(const UtCString&)>(&CDateTime::ConvertDate));
EXPORTED(Has<CDateTime (*)(const UtCString&, unsigned long)>(&CDateTime::ParseDate));
EXPORTED(Has<void (CDateTime::*)()>(&CDateTime::SetCurrentDate));
EXPORTED(Has<void (CDateTime::*)()>(&CDateTime::SetCurrentTime));
EXPORTED(Has<void (CDateTime::*)()>(&CDateTime::SetCurrentDateTime));
EXPORTED(Has<void (CDateTime::*)()>(&CDateTime::SetTimeStamp));
EXPORTED(Has<CDateTime (*)()>(&CDateTime::GetCurrentDate));
EXPORTED(Has<CDateTime (*)()>(&CDateTime::GetCurrentClock));
EXPORTED(Has<CDateTime (*)()>(&CDateTime::GetTickCount));
EXPORTED(Has<bool (CDateTime::*)(int)>(&CDateTime::AddDays));
EXPORTED(Has<bool (CDateTime::*)(int, int)>(&CDateTime::AddMonths));
EXPORTED(Has<bool (CDateTime::*)(int, int)>(&CDateTime::AddYears));

// CTime
static_assert(std::is_constructible_v<CTime>);
static_assert(std::is_constructible_v<CTime, __int64>);
static_assert(std::is_constructible_v<CTime, int, int, int, int, int, int, int>);
EXPORTED(Has<CTime (*)()>(&CTime::GetCurrentTime));
EXPORTED(Has<__int64 (CTime::*)() const>(&CTime::GetTime));
EXPORTED(Has<int (CTime::*)() const>(&CTime::GetYear));
EXPORTED(Has<int (CTime::*)() const>(&CTime::GetMonth));
EXPORTED(Has<int (CTime::*)() const>(&CTime::GetDay));
EXPORTED(Has<int (CTime::*)() const>(&CTime::GetHour));
EXPORTED(Has<int (CTime::*)() const>(&CTime::GetMinute));
EXPORTED(Has<int (CTime::*)() const>(&CTime::GetSecond));

// COleDateTime
static_assert(std::is_constructible_v<COleDateTime>);
static_assert(std::is_constructible_v<COleDateTime, DATE>);
static_assert(std::is_constructible_v<COleDateTime, const VARIANT&>);
static_assert(std::is_constructible_v<COleDateTime, const CTime&>);
static_assert(std::is_constructible_v<COleDateTime, __int64>);
static_assert(std::is_constructible_v<COleDateTime, int, int, int, int, int, int>);
EXPORTED(Has<DATE (COleDateTime::*)() const>(&COleDateTime::operator DATE));
EXPORTED(Has<COleDateTime::DateTimeStatus (COleDateTime::*)() const>(&COleDateTime::GetStatus));
EXPORTED(Has<void (COleDateTime::*)(COleDateTime::DateTimeStatus)>(&COleDateTime::SetStatus));
EXPORTED(Has<int (COleDateTime::*)() const>(&COleDateTime::GetYear));
EXPORTED(Has<int (COleDateTime::*)() const>(&COleDateTime::GetMonth));
EXPORTED(Has<int (COleDateTime::*)() const>(&COleDateTime::GetDay));
EXPORTED(Has<int (COleDateTime::*)() const>(&COleDateTime::GetHour));
EXPORTED(Has<int (COleDateTime::*)() const>(&COleDateTime::GetMinute));
EXPORTED(Has<int (COleDateTime::*)() const>(&COleDateTime::GetSecond));
